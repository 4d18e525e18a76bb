#include "common/cSplit.h"

namespace vellumar {

void cSplit::split(std::string_view text, std::string_view delimiter)
{
    if (delimiter.empty()) {
        pieces_.emplace_back(text);
        return;
    }
    std::size_t start = 0;
    for (;;) {
        const std::size_t found = text.find(delimiter, start);
        if (found == std::string_view::npos) {
            pieces_.emplace_back(text.substr(start));
            return;
        }
        pieces_.emplace_back(text.substr(start, found - start));
        start = found + delimiter.size();
    }
}

std::string cSplit::item(std::size_t index) const
{
    if (index < 1 || index > pieces_.size())
        return {};
    return pieces_[index - 1];
}

void cSplit::remove(std::size_t index)
{
    if (index >= 1 && index <= pieces_.size())
        pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(index - 1));
}

} // namespace vellumar
