#pragma once

#include "common/OriginalsGuard.h"
#include "common/Services.h"

#include <memory>

namespace vellumar {

// The doors to the system as it is (files, registry, system folders, process launcher, the
// simulator's process, clock), the same for every front end. Each front end adds the ones that
// speak to its user: messages, the event pump, the folder browser and the sound player.
struct PlatformServices {
    PlatformServices();
    ~PlatformServices();

    Services With(MessageService& messages, EventPump& events, FolderBrowser& folderBrowser,
                  WavePlayer& sounds);

    std::unique_ptr<FileOperations> files;
    // Every change to the simulator's files goes through it.
    std::unique_ptr<OriginalsGuard> originals;
    std::unique_ptr<Registry> registry;
    std::unique_ptr<SystemFolders> systemFolders;
    std::unique_ptr<ProcessLauncher> launcher;
    std::unique_ptr<SimulatorProcess> simulator;
    std::unique_ptr<Clock> clock;
};

} // namespace vellumar
