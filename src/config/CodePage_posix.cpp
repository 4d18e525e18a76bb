#include "config/CodePage.h"

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <iconv.h>

namespace vellumar {

namespace {

std::string_view Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? std::string_view(value) : std::string_view();
}

std::string IconvName(int codePage)
{
    return "CP" + std::to_string(codePage);
}

// Runs iconv over all of `text`. A sequence the source cannot hold either fails the whole
// conversion (`strict`) or becomes U+FFFD, one byte at a time.
std::optional<std::string> Convert(std::string_view text, const std::string& to,
                                   const std::string& from, bool strict)
{
    iconv_t converter = iconv_open(to.c_str(), from.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1))
        return std::nullopt;
    std::string result;
    char buffer[256];
    char* in = const_cast<char*>(text.data());
    std::size_t inLeft = text.size();
    bool failed = false;
    while (inLeft > 0 && !failed) {
        char* out = buffer;
        std::size_t outLeft = sizeof buffer;
        const std::size_t done = iconv(converter, &in, &inLeft, &out, &outLeft);
        result.append(buffer, static_cast<std::size_t>(out - buffer));
        if (done != static_cast<std::size_t>(-1) || errno == E2BIG)
            continue;
        if (strict) {
            failed = true;
        } else {
            result += "\xEF\xBF\xBD";
            ++in;
            --inLeft;
        }
    }
    if (!failed) {
        char* out = buffer;
        std::size_t outLeft = sizeof buffer;
        iconv(converter, nullptr, nullptr, &out, &outLeft); // ends a shift state
        result.append(buffer, static_cast<std::size_t>(out - buffer));
    }
    iconv_close(converter);
    if (failed)
        return std::nullopt;
    return result;
}

} // namespace

int AnsiCodePage()
{
    std::string_view chosen = Environment("VELLUMAR_CODEPAGE");
    if (chosen.size() > 2 && (chosen[0] == 'c' || chosen[0] == 'C') &&
        (chosen[1] == 'p' || chosen[1] == 'P'))
        chosen.remove_prefix(2);
    int codePage = 0;
    const auto [end, error] =
        std::from_chars(chosen.data(), chosen.data() + chosen.size(), codePage);
    if (error == std::errc() && end == chosen.data() + chosen.size() && codePage > 0)
        return codePage;
    // The locale that decides text handling, in the order the C library consults it.
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const std::string_view locale = Environment(name); !locale.empty())
            return AnsiCodePageOfLocale(locale);
    return 1252;
}

std::string CodePageToUtf8(std::string_view text, int codePage)
{
    // A code page iconv does not know leaves the text as it came.
    return Convert(text, "UTF-8", IconvName(codePage), false).value_or(std::string(text));
}

std::optional<std::string> Utf8ToCodePage(std::string_view text, int codePage)
{
    return Convert(text, IconvName(codePage), "UTF-8", true);
}

} // namespace vellumar
