#pragma once

#include <string>

namespace vellumar {

class OriginalsStore;
struct TextureServices;

enum class InterruptedInstallChoice {
    None,      // no install was cut off
    Completed, // its remaining files were placed
    PutBack,   // the files it had placed got their originals back
    Left,      // the user chose to decide at the next start
};

// An install journal left in the data folder means an install never came to its end. Names
// the set and how many of its files were placed, and asks: Yes completes the install, No puts
// the originals of the placed files back, Cancel (the default) asks again at the next start.
// Done either way, the journal goes.
InterruptedInstallChoice OfferInterruptedInstall(TextureServices& services, OriginalsStore& store,
                                                 const std::string& dataFolder);

} // namespace vellumar
