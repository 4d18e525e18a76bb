#include "autorandom/PickRandomSet.h"

#include "common/Clock.h"
#include "support/CountingEventPump.h"
#include "support/FakeClock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <deque>

namespace vellumar {
namespace {

// Answers the queued numbers in turn.
std::function<double()> Sequence(std::deque<double> numbers)
{
    auto queue = std::make_shared<std::deque<double>>(std::move(numbers));
    return [queue] {
        const double next = queue->front();
        queue->pop_front();
        return next;
    };
}

TEST(PickRandomSet, NoFlaggedSetGivesIndexZeroAndOneFlaggedSetNeedsNoChance)
{
    test::CountingEventPump events;
    RandomSetPicker picker(Sequence({}));
    EXPECT_EQ(picker.PickRandomSet(0, 3, {false, false, false, false}, events), 0);
    EXPECT_EQ(picker.PickRandomSet(0, 3, {false, false, true, false}, events), 2);
    EXPECT_EQ(picker.PickRandomSet(0, 3, {false, false, true, false}, events), 2);
    EXPECT_EQ(events.calls, 0);
}

TEST(PickRandomSet, DrawsUntilAFlaggedSetOtherThanTheLastPick)
{
    test::CountingEventPump events;
    // 4 sets: 0.1 -> 0 (the last pick at start), 0.3 -> 1 (not flagged), 0.6 -> 2.
    RandomSetPicker picker(Sequence({0.1, 0.3, 0.6, 0.6, 0.99, 0.1}));
    const std::vector<bool> flags{true, false, true, true};
    EXPECT_EQ(picker.PickRandomSet(0, 3, flags, events), 2);
    EXPECT_EQ(events.calls, 3);
    // 0.6 -> 2 again is refused; 0.99 -> 3.
    EXPECT_EQ(picker.PickRandomSet(0, 3, flags, events), 3);
    EXPECT_EQ(picker.PickRandomSet(0, 3, flags, events), 0);
    EXPECT_EQ(picker.LastRandomPick, 0);
}

// The seed comes from the clock: two runs started at different moments rotate differently,
// while a run started at the same moment (a test) repeats itself.
TEST(PickRandomSet, TheSeedComesFromTheClock)
{
    const auto sequence = [](test::FakeClock& clock) {
        const auto uniform = ClockSeededUniform(clock);
        std::vector<double> values;
        for (int i = 0; i < 8; ++i)
            values.push_back(uniform());
        return values;
    };
    test::FakeClock first, same, later;
    later.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(sequence(first), sequence(same));
    EXPECT_NE(sequence(first), sequence(later));
}

} // namespace
} // namespace vellumar
