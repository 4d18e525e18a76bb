#include "common/WideText_win.h"

#include <windows.h>

#include <climits>

namespace vellumar {

namespace {

std::wstring Decode(UINT codePage, DWORD flags, std::string_view text)
{
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, flags, text.data(), size, nullptr, 0);
    if (length <= 0)
        return {};
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, flags, text.data(), size, wide.data(), length);
    return wide;
}

} // namespace

std::wstring ToWide(std::string_view text)
{
    if (text.empty() || text.size() > INT_MAX)
        return {};
    std::wstring wide = Decode(CP_UTF8, MB_ERR_INVALID_CHARS, text);
    if (wide.empty())
        wide = Decode(CP_ACP, 0, text);
    return wide;
}

std::string FromWide(std::wstring_view text)
{
    if (text.empty() || text.size() > INT_MAX)
        return {};
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    if (length <= 0)
        return {};
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), length, nullptr, nullptr);
    return narrow;
}

} // namespace vellumar
