#include "config/CodePage.h"

#include <windows.h>

#include <charconv>
#include <climits>

namespace vellumar {

namespace {

std::wstring ToUtf16(std::string_view text, UINT codePage, DWORD flags)
{
    if (text.empty() || text.size() > INT_MAX)
        return {};
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, flags, text.data(), size, nullptr, 0);
    if (length <= 0)
        return {};
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, flags, text.data(), size, wide.data(), length);
    return wide;
}

std::optional<std::string> FromUtf16(std::wstring_view text, UINT codePage)
{
    if (text.empty())
        return std::string();
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

} // namespace

int AnsiCodePage()
{
    char chosen[16] = {};
    const DWORD length = GetEnvironmentVariableA("VELLUMAR_CODEPAGE", chosen, sizeof chosen);
    std::string_view text(chosen, length < sizeof chosen ? length : 0);
    if (text.size() > 2 && (text[0] == 'c' || text[0] == 'C') && (text[1] == 'p' || text[1] == 'P'))
        text.remove_prefix(2);
    int codePage = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), codePage);
    if (error == std::errc() && end == text.data() + text.size() && codePage > 0)
        return codePage;
    return static_cast<int>(GetACP());
}

std::string CodePageToUtf8(std::string_view text, int codePage)
{
    const std::wstring wide = ToUtf16(text, static_cast<UINT>(codePage), 0);
    if (wide.empty())
        return std::string(text);
    return FromUtf16(wide, CP_UTF8).value_or(std::string(text));
}

std::optional<std::string> Utf8ToCodePage(std::string_view text, int codePage)
{
    const std::wstring wide = ToUtf16(text, CP_UTF8, MB_ERR_INVALID_CHARS);
    if (wide.empty())
        return text.empty() ? std::optional<std::string>(std::string()) : std::nullopt;
    return FromUtf16(wide, static_cast<UINT>(codePage));
}

} // namespace vellumar
