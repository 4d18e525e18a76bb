#include "common/WideText_win.h"

#include <windows.h>

#include <climits>

namespace vellumar {

std::wstring WideFromCodePage(std::string_view text, unsigned codePage, bool strict)
{
    if (text.empty() || text.size() > INT_MAX)
        return {};
    const DWORD flags = strict ? MB_ERR_INVALID_CHARS : 0;
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, flags, text.data(), size, nullptr, 0);
    if (length <= 0)
        return {};
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, flags, text.data(), size, wide.data(), length);
    return wide;
}

std::optional<std::string> WideToCodePage(std::wstring_view text, unsigned codePage)
{
    if (text.empty())
        return std::string();
    if (text.size() > INT_MAX)
        return std::nullopt;
    const int size = static_cast<int>(text.size());
    // UTF-8 takes no "used default" flag; every other code page must say when a character
    // had no place in it.
    BOOL usedDefault = FALSE;
    BOOL* lost = codePage == CP_UTF8 ? nullptr : &usedDefault;
    const DWORD flags = codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const int length =
        WideCharToMultiByte(codePage, flags, text.data(), size, nullptr, 0, nullptr, lost);
    if (length <= 0 || usedDefault)
        return std::nullopt;
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(codePage, flags, text.data(), size, narrow.data(), length, nullptr, lost);
    return narrow;
}

std::wstring ToWide(std::string_view text)
{
    std::wstring wide = WideFromCodePage(text, CP_UTF8, true);
    if (wide.empty())
        wide = WideFromCodePage(text, CP_ACP, false);
    return wide;
}

std::string FromWide(std::wstring_view text)
{
    return WideToCodePage(text, CP_UTF8).value_or(std::string());
}

} // namespace vellumar
