// vellumar-cli: the scripting and troubleshooting front end over the same core as the program.

#include "cli/CliCommands.h"
#include "cli/CommandLine.h"
#include "cli/ConsoleMessageService.h"
#include "common/NoWindows.h"
#include "common/Services.h"
#include "config/PlatformServices.h"

#include <iostream>

int main(int argc, char** argv)
{
    using namespace vellumar;
    KeepRunningWhenOutputCloses();
    ConsoleMessageService messages(std::cerr);
    NoWindowsEventPump events;
    NoWindowsFolderBrowser folderBrowser;
    NoWindowsWavePlayer sounds;
    PlatformServices platform;
    Services services = platform.With(messages, events, folderBrowser, sounds);
    return RunCliCommand(
        CommandLineArguments(argc, argv), services, std::cout, std::cerr,
        [&messages](ConsoleMessageService::Answers answers) { messages.setAnswers(answers); });
}
