#include "config/WineRegistryFile.h"

#include "common/TextCompare.h"

#include <cstdint>
#include <cstring>

namespace vellumar {

namespace {

void AppendUtf8(std::string& out, std::uint32_t code)
{
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (code >> 6)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (code >> 12)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (code >> 18)));
        out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
}

// UTF-16 code units to UTF-8; surrogate pairs are joined, a stray half becomes U+FFFD.
std::string Utf16ToUtf8(const std::vector<std::uint16_t>& units)
{
    std::string out;
    out.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const std::uint32_t unit = units[i];
        if (unit >= 0xD800 && unit <= 0xDBFF && i + 1 < units.size() && units[i + 1] >= 0xDC00 &&
            units[i + 1] <= 0xDFFF) {
            AppendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (units[i + 1] - 0xDC00));
            ++i;
        } else if (unit >= 0xD800 && unit <= 0xDFFF) {
            AppendUtf8(out, 0xFFFD);
        } else {
            AppendUtf8(out, unit);
        }
    }
    return out;
}

int HexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

std::string CutAtNul(std::string text)
{
    const std::size_t nul = text.find('\0');
    if (nul != std::string::npos)
        text.resize(nul);
    return text;
}

// "hex(2):25,00,53,00,..." data as text: UTF-16LE code units.
std::optional<std::string> DecodeHexText(std::string_view data)
{
    std::vector<std::uint16_t> units;
    int low = -1;
    std::size_t i = 0;
    while (i < data.size()) {
        const char c = data[i];
        if (c == ',' || IsBlank(c) || c == '\\') {
            ++i;
            continue;
        }
        if (i + 1 >= data.size() || HexDigit(c) < 0 || HexDigit(data[i + 1]) < 0)
            return std::nullopt;
        const int byte = HexDigit(c) * 16 + HexDigit(data[i + 1]);
        i += 2;
        if (low < 0) {
            low = byte;
        } else {
            units.push_back(static_cast<std::uint16_t>(low | (byte << 8)));
            low = -1;
        }
    }
    return CutAtNul(Utf16ToUtf8(units));
}

// The text of a value's data, when it is a string.
std::optional<std::string> DecodeStringData(std::string_view data)
{
    if (data.starts_with("str(")) {
        const std::size_t colon = data.find("):");
        if (colon == std::string_view::npos)
            return std::nullopt;
        data.remove_prefix(colon + 2);
    }
    if (!data.empty() && data.front() == '"') {
        auto text = UnescapeRegistryString(data.substr(1), '"');
        if (!text)
            return std::nullopt;
        return CutAtNul(std::move(text->first));
    }
    for (std::string_view type : {"hex(1):", "hex(2):", "hex(7):"})
        if (data.starts_with(type))
            return DecodeHexText(data.substr(type.size()));
    return std::nullopt; // dword:, hex:, other hex(N): not a string
}

std::string EscapedHeader(std::string_view path, bool& plainAscii)
{
    std::string header = "[";
    plainAscii = true;
    for (char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte >= 0x7F)
            plainAscii = false;
        if (c == '\\' || c == '[' || c == ']')
            header.push_back('\\');
        header.push_back(c);
    }
    return header;
}

} // namespace

std::optional<std::pair<std::string, std::size_t>> UnescapeRegistryString(std::string_view text,
                                                                          char closing)
{
    std::vector<std::uint16_t> units;
    std::string raw; // bytes outside escapes, kept as they are (the file is UTF-8)
    std::string out;
    auto flushUnits = [&] {
        if (!units.empty()) {
            out += Utf16ToUtf8(units);
            units.clear();
        }
    };
    std::size_t i = 0;
    while (i < text.size()) {
        const char c = text[i];
        if (c == closing) {
            flushUnits();
            return std::make_pair(std::move(out), i + 1);
        }
        if (c != '\\') {
            flushUnits();
            out.push_back(c);
            ++i;
            continue;
        }
        if (++i >= text.size())
            break;
        const char e = text[i++];
        switch (e) {
        case 'a':
            units.push_back('\a');
            break;
        case 'b':
            units.push_back('\b');
            break;
        case 'e':
            units.push_back(0x1B);
            break;
        case 'f':
            units.push_back('\f');
            break;
        case 'n':
            units.push_back('\n');
            break;
        case 'r':
            units.push_back('\r');
            break;
        case 't':
            units.push_back('\t');
            break;
        case 'v':
            units.push_back('\v');
            break;
        case 'x': {
            std::uint32_t value = 0;
            int digits = 0;
            while (digits < 4 && i < text.size() && HexDigit(text[i]) >= 0) {
                value = value * 16 + static_cast<std::uint32_t>(HexDigit(text[i++]));
                ++digits;
            }
            units.push_back(static_cast<std::uint16_t>(digits ? value : 'x'));
            break;
        }
        default:
            if (e >= '0' && e <= '7') {
                std::uint32_t value = static_cast<std::uint32_t>(e - '0');
                for (int digits = 1;
                     digits < 3 && i < text.size() && text[i] >= '0' && text[i] <= '7'; ++digits)
                    value = value * 8 + static_cast<std::uint32_t>(text[i++] - '0');
                units.push_back(static_cast<std::uint16_t>(value));
            } else {
                flushUnits();
                out.push_back(e);
            }
        }
    }
    return std::nullopt;
}

WineRegistryScanner::WineRegistryScanner(std::vector<std::string> keyPaths, std::string valueName)
    : valueName_(std::move(valueName))
{
    for (std::string& path : keyPaths) {
        Candidate candidate;
        candidate.escapedHeader = EscapedHeader(path, candidate.plainAscii);
        candidate.path = std::move(path);
        candidates_.push_back(std::move(candidate));
    }
    done_ = candidates_.empty();
}

bool WineRegistryScanner::matchesHeader(std::string_view line, std::size_t candidate) const
{
    const Candidate& wanted = candidates_[candidate];
    if (wanted.plainAscii) {
        const std::string_view header = wanted.escapedHeader;
        return line.size() > header.size() && line[header.size()] == ']' &&
               EqualsIgnoreCase(line.substr(0, header.size()), header);
    }
    const auto name = UnescapeRegistryString(line.substr(1), ']');
    return name && EqualsIgnoreCase(name->first, wanted.path);
}

bool WineRegistryScanner::keepScanningAfter(std::size_t index)
{
    candidates_[index].seen = true;
    // The answer is certain when every candidate preferred to the best found so far is passed.
    for (const Candidate& candidate : candidates_) {
        if (candidate.value)
            return false;
        if (!candidate.seen)
            return true;
    }
    return false;
}

bool WineRegistryScanner::processLine(std::string_view line)
{
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);

    if (current_ != SIZE_MAX) {
        // Inside a wanted key: value lines until the next header.
        if (!continued_.empty() || (!line.empty() && line.back() == '\\' && line.front() != '[')) {
            std::string_view part = line;
            while (!part.empty() && IsBlank(part.front()))
                part.remove_prefix(1);
            continued_.append(part);
            if (!continued_.empty() && continued_.back() == '\\') {
                continued_.pop_back();
                return true;
            }
            const std::string whole = std::move(continued_);
            continued_.clear();
            return processLine(whole);
        }
        if (!line.empty() && line.front() == '[') {
            if (!keepScanningAfter(current_))
                return false;
            current_ = SIZE_MAX;
            // fall through: this header may itself be wanted
        } else {
            std::string name;
            std::size_t after = 0;
            if (line.starts_with("@=")) {
                after = 1;
            } else if (line.starts_with("\"")) {
                auto unescaped = UnescapeRegistryString(line.substr(1), '"');
                if (!unescaped)
                    return true;
                name = std::move(unescaped->first);
                after = unescaped->second + 1;
            } else {
                return true; // comments ("#time=...", ";;") and anything unknown
            }
            if (after >= line.size() || line[after] != '=' || !EqualsIgnoreCase(name, valueName_))
                return true;
            Candidate& candidate = candidates_[current_];
            if (!candidate.value)
                candidate.value = DecodeStringData(line.substr(after + 1));
            if (candidate.value) {
                // The first candidate with the value is the answer when all before it are
                // passed; they are, or we would not be certain yet.
                bool earlierPending = false;
                for (std::size_t i = 0; i < current_; ++i)
                    earlierPending = earlierPending || !candidates_[i].seen;
                if (!earlierPending)
                    return false;
            }
            return true;
        }
    }

    if (line.empty() || line.front() != '[')
        return true;
    for (std::size_t i = 0; i < candidates_.size(); ++i) {
        if (!candidates_[i].seen && matchesHeader(line, i)) {
            current_ = i;
            break;
        }
    }
    return true;
}

bool WineRegistryScanner::feed(std::string_view chunk)
{
    if (done_)
        return false;
    std::size_t start = 0;
    while (start < chunk.size()) {
        const void* found = std::memchr(chunk.data() + start, '\n', chunk.size() - start);
        if (!found) {
            pending_.append(chunk.substr(start));
            return true;
        }
        const std::size_t end = static_cast<const char*>(found) - chunk.data();
        bool more;
        if (pending_.empty()) {
            more = processLine(chunk.substr(start, end - start));
        } else {
            pending_.append(chunk.substr(start, end - start));
            const std::string line = std::move(pending_);
            pending_.clear();
            more = processLine(line);
        }
        start = end + 1;
        if (!more) {
            done_ = true;
            return false;
        }
    }
    return true;
}

void WineRegistryScanner::finish()
{
    if (!done_ && !pending_.empty()) {
        const std::string line = std::move(pending_);
        pending_.clear();
        processLine(line);
    }
    done_ = true;
}

std::optional<std::string> WineRegistryScanner::result() const
{
    for (const Candidate& candidate : candidates_)
        if (candidate.value)
            return candidate.value;
    return std::nullopt;
}

std::optional<std::string> WineRegistryScanner::Find(std::string_view contents,
                                                     std::vector<std::string> keyPaths,
                                                     std::string valueName)
{
    WineRegistryScanner scanner(std::move(keyPaths), std::move(valueName));
    if (scanner.feed(contents))
        scanner.finish();
    return scanner.result();
}

} // namespace vellumar
