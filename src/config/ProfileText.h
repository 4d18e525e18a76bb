#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

// The INI ("private profile") format exactly as the Windows profile functions read it, and an
// editor that changes one key while keeping every other byte of the file.
//
// Reading rules, all of them the platform's own:
// - Lines end at CR, LF or CRLF; blanks (and Ctrl-Z) around a line are ignored, blank lines too.
//   A UTF-8 byte-order mark at the start is skipped.
// - "[name]" starts a section; the name runs to the last "]" of the line and is trimmed.
//   A "[" line without "]" is not a header. Lines before the first header form a section
//   whose name is "".
// - "key=value" splits at the first "="; key and value are trimmed. A value enclosed in a
//   matching pair of '"' or "'" loses the pair. A line without "=" has no value.
// - Section and key names match without regard to ASCII letter case, after trimming (a key
//   list's section name alone is taken untrimmed); the first section of a name is the only one
//   searched, and in it the first key of a name wins.
// - A NUL byte ends a name or a value.
// - Key lists leave out keys without a value and keys beginning with ";"; the section list
//   leaves out the unnamed first section.
namespace ProfileText {

// What the read functions of the platform report: `section` and `key` given reads one value;
// `key` absent lists the section's keys; `section` absent lists the sections. Lists are
// NUL-separated and NUL-terminated. The result holds exactly the characters the platform
// reports as read into a buffer of `bufferSize` characters (for a list, the final extra NUL is
// not among them). The default value stands in for a missing value or an empty list.
std::string Read(std::string_view contents, std::optional<std::string_view> section,
                 std::optional<std::string_view> key, std::string_view defaultValue,
                 std::size_t bufferSize);

// A profile file parsed once and read many times: the same answers as Read().
class ProfileDocument {
public:
    explicit ProfileDocument(std::string contents);

    std::string Read(std::optional<std::string_view> section, std::optional<std::string_view> key,
                     std::string_view defaultValue, std::size_t bufferSize) const;
    const std::string& contents() const;

private:
    struct Parsed;
    std::shared_ptr<const Parsed> parsed_;
};

// One line of a profile file as the reader sees it, for tools that point at lines.
struct ProfileLine {
    std::size_t number = 0; // 1 for the first line
    enum class Kind { Blank, Section, Key } kind = Kind::Blank;
    std::string_view name; // the section or key name, trimmed
    bool hasValue = false; // a key line with "="
    std::string value;     // the value as a read returns it (quotes removed, cut to 2047)
};
std::vector<ProfileLine> Lines(std::string_view contents);

// The file after setting `key` of `section` to `value` (or deleting the key when `value` is
// absent). Only the key's own line changes: a changed value keeps the line's indentation and
// spacing; a new key goes after the last non-blank line of the first section of that name; a
// new section is added at the end. Line endings follow the file's own (CRLF for a new file).
// Nothing (std::nullopt) when the edit changes nothing or is refused because a name or the
// value would break the file's structure (line breaks, NUL, "=" in a key, an empty name).
std::optional<std::string> Edit(std::string_view contents, std::string_view section,
                                std::string_view key, std::optional<std::string_view> value);

// The file without the sections of that name (letter case ignored): each from its header line up
// to the next header, so the blank lines and comments that end it go with it. Nothing when the
// file has no such section.
std::optional<std::string> RemoveSection(std::string_view contents, std::string_view section);

// The file with the header of each section named `from` naming `to` instead; the brackets, the
// blanks inside them and every other byte stay. Nothing when there is no such section or `to`
// would break the file's structure.
std::optional<std::string> RenameSection(std::string_view contents, std::string_view from,
                                         std::string_view to);

} // namespace ProfileText

} // namespace vellumar
