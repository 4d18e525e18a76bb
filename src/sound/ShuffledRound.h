#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace vellumar {

// One round of a random play order: every index of 0..count-1 once, shuffled with draws of
// `uniform` (in [0, 1)). A round that follows another does not start with the index the last
// one ended on (`avoidFirst`), so no piece is heard twice in a row while there are others.
std::vector<std::size_t> ShuffledRound(std::size_t count, const std::function<double()>& uniform,
                                       std::optional<std::size_t> avoidFirst = std::nullopt);

} // namespace vellumar
