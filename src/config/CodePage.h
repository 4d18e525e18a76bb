#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vellumar {

// Text in files brought over from Windows. A cloud.ini, a situation file or a set's name was
// written in the system's ANSI code page (Windows-1252 for most users, 932 for Japanese ones)
// unless the user saved it as UTF-8. The program keeps its texts in UTF-8 and reads text the
// way Wine does: what is valid UTF-8 is UTF-8, anything else is in the ANSI code page.

bool IsValidUtf8(std::string_view text);

// The ANSI code page: the system's on Windows; on Linux the one Wine picks for the locale
// (LC_ALL, LC_CTYPE or LANG). $VELLUMAR_CODEPAGE (a number such as 1252 or 932) overrides both.
int AnsiCodePage();

// The code page Wine gives a locale name such as "ja_JP.UTF-8" or "sr_RS@latin".
int AnsiCodePageOfLocale(std::string_view locale);

// Text as UTF-8: valid UTF-8 as it is, anything else read in the ANSI code page (a byte the
// code page has no character for becomes U+FFFD).
std::string DecodeAnsiText(std::string_view text);

// UTF-8 text in the ANSI code page; nothing when a character has no place in it.
std::optional<std::string> EncodeAnsiText(std::string_view text);

// The platform's conversions, one code page to and from UTF-8.
std::string CodePageToUtf8(std::string_view text, int codePage);
std::optional<std::string> Utf8ToCodePage(std::string_view text, int codePage);

} // namespace vellumar
