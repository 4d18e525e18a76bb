#include "config/IniValue.h"

#include "common/TextCompare.h"

#include <cmath>
#include <cstdlib>
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
    const std::string number(TrimBlanks(text));
    const double value = std::strtod(number.c_str(), nullptr);
    if (!std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<int> ParseInteger16(std::string_view text)
{
    const std::optional<double> number = ParseNumber(text);
    if (!number)
        return std::nullopt;
    const double rounded = std::nearbyint(*number); // the default rounding mode: halves to even
    if (rounded < -32768.0 || rounded > 32767.0)
        return std::nullopt;
    return static_cast<int>(rounded);
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
