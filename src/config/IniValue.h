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
std::optional<double> ParseNumber(std::string_view text);

// A numeric text as a 16-bit integer, rounded to the nearest (halves to even); nothing when
// it is not a number or does not fit.
std::optional<int> ParseInteger16(std::string_view text);

} // namespace vellumar
