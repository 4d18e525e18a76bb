#include "config/PlatformServices.h"

#include "common/Clock.h"
#include "common/FileOperations.h"
#include "common/OriginalsGuard.h"
#include "common/ProcessLauncher.h"
#include "common/SimulatorProcess.h"
#include "config/Registry.h"
#include "config/SystemFolders.h"

namespace vellumar {

PlatformServices::PlatformServices()
    : files(CreatePlatformFileOperations())
    , originals(std::make_unique<OriginalsGuard>(*files))
    , registry(CreatePlatformRegistry())
    , systemFolders(CreatePlatformSystemFolders())
    , launcher(CreatePlatformProcessLauncher())
    , simulator(CreatePlatformSimulatorProcess())
    , clock(CreateSystemClock())
{}

PlatformServices::~PlatformServices() = default;

Services PlatformServices::With(MessageService& messages, EventPump& events,
                                FolderBrowser& folderBrowser, WavePlayer& sounds)
{
    return {messages,   events,        *originals, *registry, *systemFolders, *launcher,
            *simulator, folderBrowser, sounds,     *clock,    *originals};
}

} // namespace vellumar
