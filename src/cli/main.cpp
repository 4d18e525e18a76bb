// vellumar-cli: the scripting and troubleshooting front end over the same core as the program.

#include "CliCommands.h"
#include "CommandLine.h"
#include "ConsoleMessageService.h"
#include "EventPump.h"
#include "FileOperations.h"
#include "FolderBrowser.h"
#include "ProcessLauncher.h"
#include "Registry.h"
#include "Services.h"
#include "SystemFolders.h"

#include <iostream>

namespace {

// Nothing to keep alive without windows.
class NoWindowsEventPump final : public vellumar::EventPump {
public:
    void DoEvents() override {}
};

// Without windows there is nobody to choose a folder: the question counts as cancelled.
class NoWindowsFolderBrowser final : public vellumar::FolderBrowser {
public:
    std::string BrowseForFolder(const std::string& prompt, int, const std::string&) override
    {
        std::cerr << prompt << "\n(no folder can be chosen without windows)\n";
        return {};
    }
};

} // namespace

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
