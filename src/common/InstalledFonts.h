#pragma once

#include "common/TextList.h"

#include <functional>
#include <memory>

namespace vellumar {

// The installed font families, listed only when someone asks: the toolkit takes a good part
// of the start-up to list them, and they are only needed when cloud.ini names a font.
class InstalledFonts {
public:
    InstalledFonts() = default;
    InstalledFonts(TextList families);
    explicit InstalledFonts(std::function<TextList()> lister);

    // The families; empty when they cannot be known (no windows).
    const TextList& families() const;

private:
    std::function<TextList()> lister_;
    mutable std::shared_ptr<TextList> families_;
};

} // namespace vellumar
