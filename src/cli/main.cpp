// vellumar-cli: the scripting and troubleshooting front end over the same core as the program.

#include "CliCommands.h"
#include "CommandLine.h"
#include "ConsoleMessageService.h"
#include "FileOperations.h"
#include "NoWindows.h"
#include "ProcessLauncher.h"
#include "Registry.h"
#include "Services.h"
#include "SystemFolders.h"

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
    Services services{messages,       events,    *files,       *registry,
                      *systemFolders, *launcher, folderBrowser};
    return RunCliCommand(
        CommandLineArguments(argc, argv), services, std::cout, std::cerr,
        [&messages](ConsoleMessageService::Answers answers) { messages.setAnswers(answers); });
}
