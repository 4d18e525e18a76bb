#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vellumar {

// How cloud.ini values are read. Everything from the first "'" on is a comment: a value with
// one is the part before it, trimmed; a value without one stands as it is.
std::string StripIniComment(std::string_view value);

// True and False in any letter case; a number is False when 0 and True otherwise.
std::optional<bool> ParseBooleanText(std::string_view text);

// A number as users write them in settings: blanks around it, a sign, digits with an optional
// decimal point, an optional exponent.
bool IsNumericText(std::string_view text);
// The number a numeric text stands for, whatever the locale's decimal point; a number too
// large for a double is infinite (with its sign), one too small is 0.
std::optional<double> ParseNumber(std::string_view text);

} // namespace vellumar
