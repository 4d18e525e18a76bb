#pragma once

#include <string>
#include <string_view>

namespace vellumar {

// Letter case is ignored for the ASCII letters, as the file names, settings and registry keys
// this program deals with are ASCII. Other bytes compare as they are.
char ToLowerAscii(char c);
std::string ToLowerAscii(std::string_view text);
bool EqualsIgnoreCase(std::string_view a, std::string_view b);
bool StartsWithIgnoreCase(std::string_view text, std::string_view prefix);
bool EndsWithIgnoreCase(std::string_view text, std::string_view suffix);
std::size_t FindIgnoreCase(std::string_view text, std::string_view needle);

// Three-way comparison on upper-cased ASCII, the order in which Windows lists a folder.
int CompareIgnoreCase(std::string_view a, std::string_view b);

// Blanks as the system trims them: space, tab, CR, LF, vertical tab and form feed.
bool IsBlank(char c);
std::string_view TrimBlanks(std::string_view text);

// The plain trim of the path helpers: spaces only, as a tab is a legal (if odd) file name byte.
std::string_view TrimSpaces(std::string_view text);

} // namespace vellumar
