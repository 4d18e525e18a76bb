#pragma once

#include "CountingEventPump.h"
#include "FakeMessageService.h"
#include "FakeRegistry.h"
#include "FakeSystemFolders.h"
#include "FaultyFileOperations.h"
#include "RecordingProcessLauncher.h"
#include "ScriptedFolderBrowser.h"
#include "Services.h"

namespace vellumar::test {

// Every service as a fake (the file operations are the real ones with a fault seam), bundled.
struct TestServices {
    FakeMessageService messages;
    CountingEventPump events;
    FaultyFileOperations files;
    FakeRegistry registry;
    FakeSystemFolders systemFolders;
    RecordingProcessLauncher launcher;
    ScriptedFolderBrowser folderBrowser;
    Services services{messages, events, files, registry, systemFolders, launcher, folderBrowser};
};

} // namespace vellumar::test
