#include "common/WideText_win.h"
#include "config/CodePage.h"

#include <windows.h>

#include <charconv>

namespace vellumar {

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
    const std::wstring wide = WideFromCodePage(text, static_cast<unsigned>(codePage), false);
    if (wide.empty())
        return std::string(text);
    return WideToCodePage(wide, CP_UTF8).value_or(std::string(text));
}

std::optional<std::string> Utf8ToCodePage(std::string_view text, int codePage)
{
    const std::wstring wide = WideFromCodePage(text, CP_UTF8, true);
    if (wide.empty())
        return text.empty() ? std::optional<std::string>(std::string()) : std::nullopt;
    return WideToCodePage(wide, static_cast<unsigned>(codePage));
}

} // namespace vellumar
