#pragma once

#include <vector>

namespace vellumar {

class CloudIniFile;
struct TextureSetEntry;

// The sets AutoRandom may install, and in which order, as the selection window arranges them.
struct AutoRandomSelection {
    // One per set of the catalogue, in its order: the set takes part.
    std::vector<bool> flags;
    // The sets that take part, by catalogue index, in the order the user arranged.
    std::vector<int> order;
    // AutoRandom goes down the order instead of picking at random.
    bool OrderMode = false;

    bool anySelected() const;
};

// Reads the selection after the sets: the ticks from each set's Random (and the members of a
// series that were left out of it), the order from the program's own list when there is one,
// else from the sets' Order keys (sets without one, and ties, in catalogue order), and the mode.
AutoRandomSelection ReadAutoRandomSelection(const CloudIniFile& ini,
                                            const std::vector<TextureSetEntry>& sets);

// OK of the selection window: each set section's Random as "on" or "off" (a series is on when
// any member takes part), the series members left out, the order and the mode. The sets' Order
// keys are the user's and are never written. Keys that already hold their value are left alone.
void WriteAutoRandomSelection(CloudIniFile& ini, const std::vector<TextureSetEntry>& sets,
                              const AutoRandomSelection& selection);

// The selection as cloud.ini holds it now: each set's Random read again, then the rest. Run
// after the selection window has written it.
void ReloadAutoRandomSelection(const CloudIniFile& ini, std::vector<TextureSetEntry>& sets,
                               AutoRandomSelection& selection);

// lstSet_ItemCheck: a ticked set joins the end of the order, an unticked one leaves it.
void TickAutoRandomSet(AutoRandomSelection& selection, int index, bool ticked);

} // namespace vellumar
