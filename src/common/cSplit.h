#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

// A list of text pieces, numbered from 1.
class cSplit {
public:
    // Appends every piece of `text` between occurrences of `delimiter`, left to right,
    // including the piece after the last one. An empty delimiter leaves the text whole.
    void split(std::string_view text, std::string_view delimiter);

    // The piece at `index` (1-based); "" outside the list.
    std::string item(std::size_t index) const;
    std::size_t count() const { return pieces_.size(); }
    // Removes the piece at `index` (1-based) when the list has it.
    void remove(std::size_t index);
    void add(std::string text) { pieces_.push_back(std::move(text)); }

private:
    std::vector<std::string> pieces_;
};

} // namespace vellumar
