#include "config/ProfileText.h"

#include "common/TextCompare.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace vellumar::ProfileText {

namespace {

constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

// The platform trims Ctrl-Z along with the usual blanks: old editors ended files with it.
bool IsProfileSpace(char c)
{
    return IsBlank(c) || c == '\x1A';
}

std::string_view TrimProfileSpace(std::string_view text)
{
    while (!text.empty() && IsProfileSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsProfileSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view CutAtNulChar(std::string_view text)
{
    const std::size_t nul = text.find('\0');
    return nul == std::string_view::npos ? text : text.substr(0, nul);
}

// One physical line of the file, as offsets into it.
struct Line {
    std::size_t begin = 0;      // first byte of the line
    std::size_t contentEnd = 0; // where the line break starts
    std::size_t end = 0;        // after the line break

    enum class Kind { Blank, Section, Key } kind = Kind::Blank;
    std::string_view name;      // section or key name, trimmed and cut at NUL
    std::size_t nameLength = 0; // the key name's length before the NUL cut
    bool hasValue = false;      // the key line has an "="
    std::string_view value;     // trimmed and cut at NUL
    std::size_t valueBegin = 0; // the raw value's span in the file
    std::size_t valueEnd = 0;
    std::size_t nameEnd = 0; // where the trimmed line content ends
};

Line ParseLine(std::string_view contents, std::size_t begin, std::size_t contentEnd,
               std::size_t end)
{
    Line line;
    line.begin = begin;
    line.contentEnd = contentEnd;
    line.end = end;

    std::size_t first = begin, last = contentEnd;
    while (first < last && IsProfileSpace(contents[first]))
        ++first;
    while (last > first && IsProfileSpace(contents[last - 1]))
        --last;
    if (first == last)
        return line;
    const std::string_view text = contents.substr(first, last - first);

    if (text.front() == '[') {
        const std::size_t close = text.rfind(']');
        if (close != std::string_view::npos && close > 0) {
            line.kind = Line::Kind::Section;
            line.name = CutAtNulChar(TrimProfileSpace(text.substr(1, close - 1)));
            return line;
        }
    }

    line.kind = Line::Kind::Key;
    line.nameEnd = last;
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
        line.nameLength = text.size();
        line.name = CutAtNulChar(text);
        return line;
    }
    std::string_view name = text.substr(0, equals);
    while (!name.empty() && IsProfileSpace(name.back()))
        name.remove_suffix(1);
    line.nameLength = name.size();
    line.name = CutAtNulChar(name);
    line.hasValue = true;
    std::size_t valueBegin = first + equals + 1;
    while (valueBegin < last && IsProfileSpace(contents[valueBegin]))
        ++valueBegin;
    line.valueBegin = valueBegin;
    line.valueEnd = last;
    line.value = CutAtNulChar(contents.substr(valueBegin, last - valueBegin));
    return line;
}

// All physical lines; a UTF-8 byte-order mark is kept out of the first line's content.
std::vector<Line> SplitLines(std::string_view contents)
{
    std::vector<Line> lines;
    std::size_t position = contents.substr(0, kUtf8Bom.size()) == kUtf8Bom ? kUtf8Bom.size() : 0;
    while (position < contents.size()) {
        const std::size_t lineBegin = position;
        while (position < contents.size() && contents[position] != '\r' &&
               contents[position] != '\n')
            ++position;
        const std::size_t contentEnd = position;
        if (position < contents.size()) {
            if (contents[position] == '\r' && position + 1 < contents.size() &&
                contents[position + 1] == '\n')
                position += 2;
            else
                ++position;
        }
        lines.push_back(ParseLine(contents, lineBegin, contentEnd, position));
    }
    return lines;
}

// The logical view the read functions work on.
struct Key {
    std::string_view name;
    bool hasValue;
    std::string_view value;
    std::size_t line;
};

struct Section {
    std::string_view name;
    std::size_t headerLine; // npos for the unnamed first section
    std::vector<Key> keys;
};

std::vector<Section> BuildSections(const std::vector<Line>& lines)
{
    std::vector<Section> sections;
    sections.push_back({std::string_view(), std::string_view::npos, {}});
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Line& line = lines[i];
        if (line.kind == Line::Kind::Section) {
            sections.push_back({line.name, i, {}});
        } else if (line.kind == Line::Kind::Key) {
            // The platform drops a nameless key that follows another nameless key.
            std::vector<Key>& keys = sections.back().keys;
            if (line.nameLength > 0 || keys.empty() || !keys.back().name.empty())
                keys.push_back({line.name, line.hasValue, line.value, i});
        }
    }
    return sections;
}

// The name as given: a key list looks its section up untrimmed, only a value's lookup trims.
const Section* FindSection(const std::vector<Section>& sections, std::string_view name)
{
    for (const Section& section : sections)
        if (EqualsIgnoreCase(section.name, name))
            return &section;
    return nullptr;
}

const Key* FindKey(const Section& section, std::string_view name)
{
    name = TrimProfileSpace(name);
    for (const Key& key : section.keys)
        if (EqualsIgnoreCase(key.name, name))
            return &key;
    return nullptr;
}

// A value as the platform copies it into a buffer of `size` characters: one pair of matching
// quotes removed (when the buffer holds all of it), cut to size - 1 characters.
std::string CopyEntry(std::string_view value, std::size_t size, bool stripQuotes)
{
    if (size == 0)
        return {};
    char quote = 0;
    if (stripQuotes && value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
        quote = value.front();
        value.remove_prefix(1);
    }
    std::string copied(value.substr(0, size - 1));
    if (quote && size >= value.size() && !copied.empty())
        copied.pop_back();
    return copied;
}

std::string DefaultText(std::string_view defaultValue, std::size_t size)
{
    // The platform cuts trailing spaces from the default, but never all of it.
    std::size_t length = defaultValue.size();
    while (length > 1 && defaultValue[length - 1] == ' ')
        --length;
    return CopyEntry(defaultValue.substr(0, length), size, true);
}

std::string ListKeys(const Section* section, std::string_view defaultValue, std::size_t size)
{
    std::string list;
    std::size_t room = size;
    bool truncated = false;
    if (section) {
        for (const Key& key : section->keys) {
            if (room <= 2)
                break;
            if (!key.hasValue || (!key.name.empty() && key.name.front() == ';'))
                continue;
            const std::string_view name = key.name.substr(0, room - 2);
            list.append(name);
            list.push_back('\0');
            room -= name.size() + 1;
            if (room < 2)
                break;
        }
        truncated = room <= 1;
    }
    // Unlike a missing value's, this default keeps its trailing spaces.
    if (list.empty() || list.front() == '\0')
        return CopyEntry(defaultValue, size, true);
    if (truncated)
        list.resize(size - 2);
    return list;
}

std::string ListSections(const std::vector<Section>& sections, std::size_t size)
{
    if (size <= 1)
        return {};
    std::string list;
    std::size_t room = size - 1;
    for (const Section& section : sections) {
        if (section.name.empty())
            continue;
        const std::size_t needed = section.name.size() + 1;
        if (needed >= room) {
            list.append(section.name.substr(0, room - 1));
            list.push_back('\0');
            list.resize(size - 2);
            return list;
        }
        list.append(section.name);
        list.push_back('\0');
        room -= needed;
    }
    return list;
}

bool BreaksStructure(std::string_view text)
{
    return text.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos;
}

std::string_view LineBreakOf(std::string_view contents)
{
    const std::size_t first = contents.find_first_of("\r\n");
    if (first == std::string_view::npos)
        return "\r\n";
    if (contents[first] == '\n')
        return "\n";
    return first + 1 < contents.size() && contents[first + 1] == '\n' ? "\r\n" : "\r";
}

} // namespace

struct ProfileDocument::Parsed {
    std::string contents;
    std::vector<Line> lines;
    std::vector<Section> sections;
    // The first section of each lower-cased name: most files hold dozens of sections and are
    // asked for hundreds of values.
    std::unordered_map<std::string, std::size_t> firstSection;

    const Section* find(std::string_view name) const
    {
        const auto found = firstSection.find(ToLowerAscii(name));
        return found == firstSection.end() ? nullptr : &sections[found->second];
    }
};

ProfileDocument::ProfileDocument(std::string contents)
    : parsed_(std::make_shared<Parsed>())
{
    auto parsed = std::const_pointer_cast<Parsed>(parsed_);
    parsed->contents = std::move(contents);
    parsed->lines = SplitLines(parsed->contents);
    parsed->sections = BuildSections(parsed->lines);
    for (std::size_t i = 0; i < parsed->sections.size(); ++i)
        parsed->firstSection.emplace(ToLowerAscii(parsed->sections[i].name), i);
}

const std::string& ProfileDocument::contents() const
{
    return parsed_->contents;
}

std::string ProfileDocument::Read(std::optional<std::string_view> section,
                                  std::optional<std::string_view> key,
                                  std::string_view defaultValue, std::size_t bufferSize) const
{
    if (bufferSize == 0)
        return {};
    if (!section)
        return ListSections(parsed_->sections, bufferSize);
    // A key list looks its section up by the name as given; only a value's lookup trims it.
    if (!key)
        return ListKeys(parsed_->find(*section), defaultValue, bufferSize);
    const Section* found = parsed_->find(TrimProfileSpace(*section));
    const Key* entry = found ? FindKey(*found, *key) : nullptr;
    if (entry && entry->hasValue)
        return CopyEntry(entry->value, bufferSize, true);
    return DefaultText(defaultValue, bufferSize);
}

std::string Read(std::string_view contents, std::optional<std::string_view> section,
                 std::optional<std::string_view> key, std::string_view defaultValue,
                 std::size_t bufferSize)
{
    return ProfileDocument(std::string(contents)).Read(section, key, defaultValue, bufferSize);
}

std::vector<ProfileLine> Lines(std::string_view contents)
{
    std::vector<ProfileLine> result;
    const std::vector<Line> lines = SplitLines(contents);
    result.reserve(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        ProfileLine line;
        line.number = i + 1;
        line.kind = lines[i].kind == Line::Kind::Section ? ProfileLine::Kind::Section
                    : lines[i].kind == Line::Kind::Key   ? ProfileLine::Kind::Key
                                                         : ProfileLine::Kind::Blank;
        line.name = lines[i].name;
        line.hasValue = lines[i].hasValue;
        if (line.hasValue)
            line.value = CopyEntry(lines[i].value, 2048, true);
        result.push_back(std::move(line));
    }
    return result;
}

std::optional<std::string> Edit(std::string_view contents, std::string_view section,
                                std::string_view key, std::optional<std::string_view> value)
{
    section = TrimProfileSpace(section);
    key = TrimProfileSpace(key);
    if (section.empty() || key.empty() || BreaksStructure(section) || BreaksStructure(key) ||
        key.find('=') != std::string_view::npos || key.front() == '[')
        return std::nullopt;
    if (value) {
        value = TrimProfileSpace(*value);
        if (BreaksStructure(*value))
            return std::nullopt;
    }

    const std::vector<Line> lines = SplitLines(contents);
    const std::vector<Section> sections = BuildSections(lines);
    const Section* target = FindSection(sections, section);
    std::string edited;

    if (!target || target->headerLine == std::string_view::npos) {
        if (!value)
            return std::nullopt;
        const std::string_view lineBreak = LineBreakOf(contents);
        edited.assign(contents);
        if (!edited.empty() && edited.back() != '\n' && edited.back() != '\r')
            edited.append(lineBreak);
        edited.append("[").append(section).append("]").append(lineBreak);
        edited.append(key).append("=").append(*value).append(lineBreak);
        return edited;
    }

    const Key* existing = FindKey(*target, key);
    if (existing) {
        const Line& line = lines[existing->line];
        if (!value) {
            edited.assign(contents.substr(0, line.begin));
            edited.append(contents.substr(line.end));
        } else if (line.hasValue) {
            edited.assign(contents.substr(0, line.valueBegin));
            edited.append(*value);
            edited.append(contents.substr(line.valueEnd));
        } else {
            edited.assign(contents.substr(0, line.nameEnd));
            edited.append("=").append(*value);
            edited.append(contents.substr(line.nameEnd));
        }
        if (edited == contents)
            return std::nullopt;
        return edited;
    }

    if (!value)
        return std::nullopt;
    // After the section's last non-blank line, so blank lines before the next section stay.
    std::size_t after = target->headerLine;
    for (std::size_t i = target->headerLine + 1;
         i < lines.size() && lines[i].kind != Line::Kind::Section; ++i)
        if (lines[i].kind != Line::Kind::Blank)
            after = i;
    const Line& anchor = lines[after];
    const std::string_view lineBreak = LineBreakOf(contents);
    const std::string newLine = std::string(key) + "=" + std::string(*value);
    edited.assign(contents.substr(0, anchor.end));
    if (anchor.end == anchor.contentEnd) // the anchor is the last line and has no line break
        edited.append(lineBreak).append(newLine);
    else
        edited.append(newLine).append(lineBreak);
    edited.append(contents.substr(anchor.end));
    return edited;
}

std::optional<std::string> RemoveSection(std::string_view contents, std::string_view section)
{
    section = TrimProfileSpace(section);
    const std::vector<Line> lines = SplitLines(contents);
    std::string edited(contents);
    bool removed = false;
    // From the end, so that the offsets of the sections before stay true.
    std::size_t nextHeader = contents.size();
    for (std::size_t i = lines.size(); i-- > 0;) {
        if (lines[i].kind != Line::Kind::Section)
            continue;
        if (EqualsIgnoreCase(lines[i].name, section)) {
            edited.erase(lines[i].begin, nextHeader - lines[i].begin);
            removed = true;
        }
        nextHeader = lines[i].begin;
    }
    if (!removed)
        return std::nullopt;
    return edited;
}

std::optional<std::string> RenameSection(std::string_view contents, std::string_view from,
                                         std::string_view to)
{
    from = TrimProfileSpace(from);
    to = TrimProfileSpace(to);
    if (to.empty() || BreaksStructure(to) || to.find(']') != std::string_view::npos)
        return std::nullopt;
    const std::vector<Line> lines = SplitLines(contents);
    std::string edited(contents);
    bool renamed = false;
    for (std::size_t i = lines.size(); i-- > 0;) {
        if (lines[i].kind != Line::Kind::Section || !EqualsIgnoreCase(lines[i].name, from))
            continue;
        const auto at = static_cast<std::size_t>(lines[i].name.data() - contents.data());
        edited.replace(at, lines[i].name.size(), to);
        renamed = true;
    }
    if (!renamed)
        return std::nullopt;
    return edited;
}

} // namespace vellumar::ProfileText
