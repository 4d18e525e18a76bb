#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vellumar {

// Core keeps its texts in UTF-8; the system's W entry points take UTF-16.

// UTF-8 to UTF-16. Bytes that are not UTF-8 are read in the system's ANSI code page instead:
// paths taken from old INI files and situation files are stored that way.
std::wstring ToWide(std::string_view text);

// UTF-16 to UTF-8; an unpaired surrogate becomes U+FFFD.
std::string FromWide(std::wstring_view text);

// `text` in code page `codePage` to UTF-16; empty when it is empty or, with `strict`, when it is
// not valid in that code page.
std::wstring WideFromCodePage(std::string_view text, unsigned codePage, bool strict);

// UTF-16 to code page `codePage`; nothing when a character has no place in it (UTF-8 holds
// every character).
std::optional<std::string> WideToCodePage(std::wstring_view text, unsigned codePage);

} // namespace vellumar
