// vellumar-cli: the scripting and troubleshooting front end over the same core as the program.

#include "CliCommands.h"
#include "ConsoleMessageService.h"
#include "EventPump.h"
#include "FileOperations.h"
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

} // namespace

int main(int argc, char** argv)
{
    using namespace vellumar;
    ConsoleMessageService messages(std::cerr);
    NoWindowsEventPump events;
    const auto files = CreatePlatformFileOperations();
    const auto registry = CreatePlatformRegistry();
    const auto systemFolders = CreatePlatformSystemFolders();
    Services services{messages, events, *files, *registry, *systemFolders};
    return RunCliCommand(std::vector<std::string>(argv + 1, argv + argc), services, std::cout,
                         std::cerr);
}
