#pragma once

#include <string>
#include <string_view>

namespace vellumar {

// Why Windows (and so the simulator under Wine) cannot open a file of this bare name: a
// character it does not allow ("*", "?", ":", quotes, "<", ">", "|", "\", control characters),
// a device name such as "CON" or "LPT1", also with an extension ("PRN.cld"), or a trailing dot
// or blank, which Windows drops. "" when the name is fine.
std::string WhyWindowsRefusesName(std::string_view name);

} // namespace vellumar
