#include "common/FontList.h"

#include "common/TextCompare.h"

#include <unordered_set>

namespace vellumar {

void EnumerateFonts(const TextList& installedFamilies, const FontFamilyCallback& callback)
{
    std::unordered_set<std::string> seen;
    for (const std::string& family : installedFamilies) {
        if (!seen.insert(ToLowerAscii(family)).second)
            continue;
        if (!callback(family))
            return;
    }
}

} // namespace vellumar
