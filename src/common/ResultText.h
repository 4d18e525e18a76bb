#pragma once

#include "common/TextCompare.h"

#include <string>
#include <string_view>

namespace vellumar {

// Yes/no answers about the file system are the texts "OK" and "Error"; callers compare the
// whole text without regard to letter case.
inline constexpr std::string_view kOK = "OK";
inline constexpr std::string_view kError = "Error";

inline std::string ResultText(bool ok)
{
    return std::string(ok ? kOK : kError);
}

inline bool IsOK(std::string_view result)
{
    return EqualsIgnoreCase(result, kOK);
}
inline bool IsError(std::string_view result)
{
    return EqualsIgnoreCase(result, kError);
}

} // namespace vellumar
