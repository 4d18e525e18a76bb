#include "sound/CdDisc.h"

namespace vellumar {

int CdDisc::trackAt(std::int32_t sector) const
{
    int number = 1;
    for (int n = 2; n <= trackCount(); ++n)
        if (track(n).firstSector <= sector)
            number = n;
    return number;
}

} // namespace vellumar
