#include "common/InstalledFonts.h"

namespace vellumar {

InstalledFonts::InstalledFonts(TextList families)
    : families_(std::make_shared<TextList>(std::move(families)))
{}

InstalledFonts::InstalledFonts(std::function<TextList()> lister)
    : lister_(std::move(lister))
{}

const TextList& InstalledFonts::families() const
{
    if (!families_)
        families_ = std::make_shared<TextList>(lister_ ? lister_() : TextList());
    return *families_;
}

} // namespace vellumar
