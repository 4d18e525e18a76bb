#include "ui/PickRandomSet.h"

#include "support/CountingEventPump.h"

#include <gtest/gtest.h>

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

TEST(PickRandomSet, ClockSeededNumbersStayInRange)
{
    const auto uniform = ClockSeededUniform();
    for (int i = 0; i < 1000; ++i) {
        const double value = uniform();
        ASSERT_GE(value, 0.0);
        ASSERT_LT(value, 1.0);
    }
}

} // namespace
} // namespace vellumar
