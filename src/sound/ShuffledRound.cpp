#include "sound/ShuffledRound.h"

#include <algorithm>
#include <numeric>

namespace vellumar {

namespace {

// An index below `bound` from one draw; a generator that answers 1.0 stays in range.
std::size_t Draw(const std::function<double()>& uniform, std::size_t bound)
{
    const double draw = std::clamp(uniform(), 0.0, 1.0);
    return std::min(bound - 1, static_cast<std::size_t>(draw * static_cast<double>(bound)));
}

} // namespace

std::vector<std::size_t> ShuffledRound(std::size_t count, const std::function<double()>& uniform,
                                       std::optional<std::size_t> avoidFirst)
{
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    // Fisher-Yates from the back.
    for (std::size_t i = count; i > 1; --i)
        std::swap(order[i - 1], order[Draw(uniform, i)]);
    if (count > 1 && avoidFirst && order.front() == *avoidFirst)
        std::swap(order.front(), order[1 + Draw(uniform, count - 1)]);
    return order;
}

} // namespace vellumar
