#include "sound/CdioDrive.h"
#include "sound/CreatePlatformMediaControl.h"
#include "sound/MciInterpreter.h"

namespace vellumar {

std::unique_ptr<MediaControl> CreatePlatformMediaControl(Clock& clock, CdAudioOutput* output)
{
    return std::make_unique<MciInterpreter>(clock, &FindCdDrive, output);
}

} // namespace vellumar
