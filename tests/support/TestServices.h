#pragma once

#include "common/OriginalsGuard.h"
#include "common/Services.h"
#include "support/CountingEventPump.h"
#include "support/FakeClock.h"
#include "support/FakeMessageService.h"
#include "support/FakeRegistry.h"
#include "support/FakeSimulatorProcess.h"
#include "support/FakeSystemFolders.h"
#include "support/FaultyFileOperations.h"
#include "support/RecordingProcessLauncher.h"
#include "support/RecordingWavePlayer.h"
#include "support/ScriptedFolderBrowser.h"

namespace vellumar::test {

// Every service as a fake (the file operations are the real ones with a fault seam), bundled.
struct TestServices {
    FakeMessageService messages;
    CountingEventPump events;
    FaultyFileOperations files;
    FakeRegistry registry;
    FakeSystemFolders systemFolders;
    RecordingProcessLauncher launcher;
    FakeSimulatorProcess simulator;
    ScriptedFolderBrowser folderBrowser;
    RecordingWavePlayer sounds;
    FakeClock clock;
    // The fault seam lies under the guard, as the platform's operations lie under it.
    OriginalsGuard originals{files};
    Services services{messages,  events,        originals, registry, systemFolders, launcher,
                      simulator, folderBrowser, sounds,    clock,    originals};
};

} // namespace vellumar::test
