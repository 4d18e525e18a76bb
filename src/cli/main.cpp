// vellumar-cli: the scripting and troubleshooting front end over the same core as the program.

#include "cli/CliCommands.h"
#include "cli/CommandLine.h"
#include "cli/ConsoleMessageService.h"
#include "common/Clock.h"
#include "common/FileOperations.h"
#include "common/NoWindows.h"
#include "common/ProcessLauncher.h"
#include "common/Services.h"
#include "config/Registry.h"
#include "config/SystemFolders.h"

#include <iostream>

int main(int argc, char** argv)
{
    using namespace vellumar;
    ConsoleMessageService messages(std::cerr);
    NoWindowsEventPump events;
    const auto files = CreatePlatformFileOperations();
    const auto registry = CreatePlatformRegistry();
    const auto systemFolders = CreatePlatformSystemFolders();
    const auto launcher = CreatePlatformProcessLauncher();
    NoWindowsFolderBrowser folderBrowser;
    const auto clock = CreateSystemClock();
    Services services{messages,       events,    *files,        *registry,
                      *systemFolders, *launcher, folderBrowser, *clock};
    return RunCliCommand(
        CommandLineArguments(argc, argv), services, std::cout, std::cerr,
        [&messages](ConsoleMessageService::Answers answers) { messages.setAnswers(answers); });
}
