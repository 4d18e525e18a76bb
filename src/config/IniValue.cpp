#include "config/IniValue.h"

#include "common/TextCompare.h"

#include <charconv>
#include <cmath>
#include <string>

namespace vellumar {

std::string StripIniComment(std::string_view value)
{
    const std::size_t quote = value.find('\'');
    if (quote == std::string_view::npos)
        return std::string(value);
    return std::string(TrimBlanks(value.substr(0, quote)));
}

bool IsNumericText(std::string_view text)
{
    text = TrimBlanks(text);
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    std::size_t digits = 0;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9')
        ++i, ++digits;
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9')
            ++i, ++digits;
    }
    if (digits == 0)
        return false;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-'))
            ++i;
        std::size_t exponentDigits = 0;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9')
            ++i, ++exponentDigits;
        if (exponentDigits == 0)
            return false;
    }
    return i == text.size();
}

std::optional<double> ParseNumber(std::string_view text)
{
    if (!IsNumericText(text))
        return std::nullopt;
    std::string_view number = TrimBlanks(text);
    const bool negative = number.front() == '-';
    if (number.front() == '+' || negative)
        number.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    (void)end;
    if (error == std::errc::result_out_of_range) {
        // Beyond a double: a negative exponent, or no exponent and nothing before the point
        // but zeros, makes it tiny; anything else huge.
        const std::size_t exponent = number.find_first_of("eE");
        const bool tiny = exponent != std::string_view::npos
                              ? number.find('-', exponent) != std::string_view::npos
                              : number.substr(0, number.find('.')).find_first_not_of('0') ==
                                    std::string_view::npos;
        value = tiny ? 0.0 : HUGE_VAL;
    }
    return negative ? -value : value;
}

std::optional<bool> ParseBooleanText(std::string_view text)
{
    const std::string_view trimmed = TrimBlanks(text);
    if (EqualsIgnoreCase(trimmed, "True"))
        return true;
    if (EqualsIgnoreCase(trimmed, "False"))
        return false;
    if (const std::optional<double> number = ParseNumber(trimmed))
        return *number != 0.0;
    return std::nullopt;
}

} // namespace vellumar
