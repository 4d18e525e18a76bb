#pragma once

#include "common/TextList.h"
#include "textures/TextureFolders.h"

namespace vellumar {

// The files of an install or restore chosen by name instead of by ticking them in the window.
// Only what the window could tick can be named: a file the set offers, by its bare name
// (letter case ignored). Anything else, a file of the set folder that is not offered or a
// path, is refused, so that a name can never reach a file outside the set's own offer.
struct NamedFiles {
    TickList ticks;      // every offered file, ticked when named (all of them when none is)
    TextList notOffered; // the names refused, as given
};

NamedFiles TickNamedFiles(const TextList& offered, const TextList& names);

} // namespace vellumar
