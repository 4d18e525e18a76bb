#pragma once

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
    Services services{messages, events,    files,         registry, systemFolders,
                      launcher, simulator, folderBrowser, sounds,   clock};
};

} // namespace vellumar::test
