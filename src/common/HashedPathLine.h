#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vellumar {

// One line of the program's own hash lists (the originals' index, the hash cache): a hash
// field, the size, the modification time and the path, separated by tabs. The path comes last,
// so it may hold anything but a line break. The fields are views into the line.
struct HashedPathLine {
    std::string_view hash;
    std::uint64_t size = 0;
    std::int64_t time = 0;
    std::string_view path;
};

// The line's fields; nullopt for a line that does not read (the hash field is not checked).
std::optional<HashedPathLine> ParseHashedPathLine(std::string_view line);

} // namespace vellumar
