#pragma once

#include <string_view>

namespace vellumar {

bool HasWildcards(std::string_view name);

// Matches a file name against a Windows wildcard pattern without regard to letter case:
// "*" is any run of characters, "?" one character, and "*.*" (like "*") matches every name,
// including names without a dot.
bool WildcardMatch(std::string_view pattern, std::string_view name);

} // namespace vellumar
