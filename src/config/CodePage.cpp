#include "config/CodePage.h"

#include "common/TextCompare.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vellumar {

namespace {

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

bool IsValidUtf8(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size()) {
        const auto byte = static_cast<unsigned char>(text[i]);
        std::size_t length = 1;
        std::uint32_t code = byte;
        if (byte >= 0xF0 && byte <= 0xF4)
            length = 4, code = byte & 0x07;
        else if (byte >= 0xE0 && byte <= 0xEF)
            length = 3, code = byte & 0x0F;
        else if (byte >= 0xC2 && byte <= 0xDF)
            length = 2, code = byte & 0x1F;
        else if (byte >= 0x80)
            return false;
        if (i + length > text.size())
            return false;
        for (std::size_t k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            if ((next & 0xC0) != 0x80)
                return false;
            code = (code << 6) | (next & 0x3F);
        }
        // Overlong forms, surrogates and numbers beyond Unicode are not UTF-8.
        if ((length == 3 && code < 0x800) || (length == 4 && (code < 0x10000 || code > 0x10FFFF)) ||
            (code >= 0xD800 && code <= 0xDFFF))
            return false;
        i += length;
    }
    return true;
}

int AnsiCodePageOfLocale(std::string_view locale)
{
    const std::size_t end = locale.find_first_of(".@");
    const std::string name = ToLowerAscii(locale.substr(0, end));
    const std::string language = name.substr(0, name.find('_'));
    const bool latinScript = locale.find("@latin") != std::string_view::npos;
    struct Language {
        std::string_view names;
        int codePage;
    };
    // Wine's table, by language; Serbian and others written in two scripts follow the script.
    static constexpr std::array<Language, 12> table{{
        {" ja ", 932},
        {" ko ", 949},
        {" ru uk be bg mk kk ky tt mn ba tg sah ", 1251},
        {" cs sk pl hu sl hr ro sq bs ", 1250},
        {" el ", 1253},
        {" tr az ", 1254},
        {" he iw yi ", 1255},
        {" ar fa ur ", 1256},
        {" lt lv et ", 1257},
        {" vi ", 1258},
        {" th ", 874},
        {" sr ", 1251},
    }};
    if (language == "zh")
        return name == "zh_tw" || name == "zh_hk" || name == "zh_mo" ? 950 : 936;
    if (language == "sr" && latinScript)
        return 1250;
    for (const Language& entry : table)
        if (!language.empty() && entry.names.find(" " + language + " ") != std::string_view::npos)
            return entry.codePage;
    return 1252;
}

std::string DecodeAnsiText(std::string_view text)
{
    if (IsAscii(text) || IsValidUtf8(text))
        return std::string(text);
    return CodePageToUtf8(text, AnsiCodePage());
}

std::optional<std::string> EncodeAnsiText(std::string_view text)
{
    if (IsAscii(text))
        return std::string(text);
    return Utf8ToCodePage(text, AnsiCodePage());
}

} // namespace vellumar
