#include "autorandom/PickRandomSet.h"

#include "common/Clock.h"
#include "common/EventPump.h"

namespace vellumar {

RandomSetPicker::RandomSetPicker(std::function<double()> uniform)
    : uniform_(std::move(uniform))
{}

int RandomSetPicker::PickRandomSet(int low, int high, const std::vector<bool>& selectionFlags,
                                   EventPump& events)
{
    int flagged = 0;
    int lastFlagged = 0;
    for (std::size_t i = 0; i < selectionFlags.size() && flagged <= 1; ++i) {
        if (selectionFlags[i]) {
            ++flagged;
            lastFlagged = static_cast<int>(i);
        }
    }
    if (flagged == 0)
        return 0;
    if (flagged == 1)
        return lastFlagged;

    auto eligible = [&](int index) {
        return index >= 0 && static_cast<std::size_t>(index) < selectionFlags.size() &&
               selectionFlags[static_cast<std::size_t>(index)] && index != LastRandomPick;
    };
    // The flagged sets lie inside [low, high] in every caller; a range without an eligible
    // index would otherwise never end.
    bool anyEligible = false;
    for (int i = low; i <= high && !anyEligible; ++i)
        anyEligible = eligible(i);
    if (!anyEligible)
        return LastRandomPick;

    int pick = 0;
    do {
        events.DoEvents();
        pick = static_cast<int>(uniform_() * (high - low + 1)) + low;
    } while (!eligible(pick));
    LastRandomPick = pick;
    return pick;
}

} // namespace vellumar
