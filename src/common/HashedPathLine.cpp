#include "common/HashedPathLine.h"

#include <charconv>

namespace vellumar {

namespace {

template <typename Number>
bool ReadNumber(std::string_view text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && !text.empty();
}

} // namespace

std::optional<HashedPathLine> ParseHashedPathLine(std::string_view line)
{
    std::string_view fields[3];
    for (std::string_view& field : fields) {
        const std::size_t tab = line.find('\t');
        if (tab == std::string_view::npos)
            return std::nullopt;
        field = line.substr(0, tab);
        line.remove_prefix(tab + 1);
    }
    HashedPathLine parsed;
    if (line.empty() || !ReadNumber(fields[1], parsed.size) || !ReadNumber(fields[2], parsed.time))
        return std::nullopt;
    parsed.hash = fields[0];
    parsed.path = line;
    return parsed;
}

} // namespace vellumar
