#include "common/TextCompare.h"

namespace vellumar {

char ToLowerAscii(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

static char ToUpperAscii(char c)
{
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string ToLowerAscii(std::string_view text)
{
    std::string lowered(text);
    for (char& c : lowered)
        c = ToLowerAscii(c);
    return lowered;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (ToLowerAscii(a[i]) != ToLowerAscii(b[i]))
            return false;
    return true;
}

bool StartsWithIgnoreCase(std::string_view text, std::string_view prefix)
{
    return text.size() >= prefix.size() && EqualsIgnoreCase(text.substr(0, prefix.size()), prefix);
}

bool EndsWithIgnoreCase(std::string_view text, std::string_view suffix)
{
    return text.size() >= suffix.size() &&
           EqualsIgnoreCase(text.substr(text.size() - suffix.size()), suffix);
}

std::size_t FindIgnoreCase(std::string_view text, std::string_view needle)
{
    if (needle.size() > text.size())
        return std::string_view::npos;
    for (std::size_t i = 0; i + needle.size() <= text.size(); ++i)
        if (EqualsIgnoreCase(text.substr(i, needle.size()), needle))
            return i;
    return std::string_view::npos;
}

int CompareIgnoreCase(std::string_view a, std::string_view b)
{
    const std::size_t common = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < common; ++i) {
        const auto ca = static_cast<unsigned char>(ToUpperAscii(a[i]));
        const auto cb = static_cast<unsigned char>(ToUpperAscii(b[i]));
        if (ca != cb)
            return ca < cb ? -1 : 1;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

std::string_view TrimBlanks(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view TrimSpaces(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

} // namespace vellumar
