#include "cli/SystemCommands.h"

#include "cli/CommandSet.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "config/GetSystemFolders.h"
#include "config/Registry.h"
#include "config/SystemFolders.h"
#include "config/clsRegRead.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>

namespace vellumar {

namespace {

std::optional<std::uint32_t> HiveByName(const std::string& name)
{
    if (EqualsIgnoreCase(name, "HKEY_LOCAL_MACHINE") || EqualsIgnoreCase(name, "HKLM"))
        return RegistryHive::LocalMachine;
    if (EqualsIgnoreCase(name, "HKEY_USERS") || EqualsIgnoreCase(name, "HKU"))
        return RegistryHive::Users;
    if (EqualsIgnoreCase(name, "HKEY_CURRENT_USER") || EqualsIgnoreCase(name, "HKCU"))
        return RegistryHive::CurrentUser;
    return std::nullopt;
}

int RegGet(const CommandSet::Texts& args, CliContext& context)
{
    const std::optional<std::uint32_t> hive = HiveByName(args[0]);
    if (!hive) {
        context.err << "vellumar-cli reg get: unknown hive " << args[0]
                    << " (use HKEY_LOCAL_MACHINE, HKEY_USERS or HKEY_CURRENT_USER)\n";
        return CliExit::UsageError;
    }
    Services& services = context.services;
    clsRegRead reader(services.registry,
                      TrimTrailingBackslash(CutAtNul(services.systemFolders.windowsFolder())));
    reader.RootHive = *hive;
    reader.KeyPath = args[1];
    reader.SubKey = args[2];
    reader.ValueName = args[3];
    const std::string value = reader.RegData();
    if (value.empty())
        return CliExit::Failed;
    context.out << value << '\n';
    return CliExit::Success;
}

int Where(CliContext& context)
{
    Services& services = context.services;
    SystemPaths paths;
    const std::string result = GetSystemFolders(services.systemFolders, services.messages, paths);
    const ProgramFolderChoice program = services.systemFolders.programFolderChoice();
    context.out << "ProgramPath: " << program.folder << '\n'
                << "ProgramPathRule: " << DescribeProgramFolderRule(program.rule) << '\n'
                << "WindowsPath: " << paths.WindowsPath << '\n'
                << "MyDocumentsPath: " << paths.MyDocumentsPath << '\n'
                << "AppDataPath: " << paths.AppDataPath << '\n';
    return IsOK(result) ? CliExit::Success : CliExit::Failed;
}

} // namespace

void AddSystemCommands(CommandSet& commands)
{
    CliContext& context = commands.context();
    commands.heading("Profiles and system");
    CLI::App& reg = commands.group(commands.root(), "reg", "read the registry");
    commands
        .add(reg, "get", "print a registry string value",
             {{"HIVE", "HKEY_LOCAL_MACHINE (HKLM), HKEY_USERS (HKU) or HKEY_CURRENT_USER (HKCU)"},
              {"KEY", "the key's path"},
              {"SUBKEY", "the sub-key under it"},
              {"VALUE", "the value's name"}},
             [&context](const CommandSet::Texts& args) { return RegGet(args, context); })
        .footer("On Linux this reads the registry files of the Wine prefix.");

    commands
        .add(commands.root(), "where",
             "print the program folder, the rule that chose it, and the system folders",
             [&context] { return Where(context); })
        .footer("The program folder is VELLUMAR_HOME when set; else the executable's folder\n"
                "when it holds a cloud.ini; else, on Linux, XDG_DATA_HOME/vellumar\n"
                "(~/.local/share/vellumar), made with a first texture set on the first start.");
}

} // namespace vellumar
