#pragma once

#include <functional>
#include <vector>

namespace vellumar {

class Clock;
class EventPump;

// The AutoRandom pick: an index in [low, high] whose selection flag is set and that differs
// from the previous pick. With one flagged set that set is taken; with none, index 0.
class RandomSetPicker {
public:
    // `uniform` answers a number in [0, 1); the program seeds it from the clock.
    explicit RandomSetPicker(std::function<double()> uniform);

    int PickRandomSet(int low, int high, const std::vector<bool>& selectionFlags,
                      EventPump& events);

    // The previous pick; 0 at start, so the first random pick of a run is never index 0 when
    // two or more sets are flagged.
    int LastRandomPick = 0;

private:
    std::function<double()> uniform_;
};

} // namespace vellumar
