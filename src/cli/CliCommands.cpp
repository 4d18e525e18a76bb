#include "cli/CliCommands.h"

#include "cli/TextureCommands.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "config/GetSystemFolders.h"
#include "config/ProfileText.h"
#include "config/Registry.h"
#include "config/SystemFolders.h"
#include "config/clsCfgRead.h"
#include "config/clsCfgWrite.h"
#include "config/clsRegRead.h"
#include "demo/DemoEnvironment.h"

#include <optional>
#include <ostream>

namespace vellumar {

namespace {

using Arguments = std::vector<std::string>;

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

// A NUL-separated list prints one name per line.
void PrintText(std::ostream& out, const std::string& text)
{
    for (char c : text)
        out.put(c == '\0' ? '\n' : c);
    out.put('\n');
}

int IniGet(const Arguments& args, Services& services, std::ostream& out)
{
    const bool fileMissing = IsError(FileExists(services.files, args[2]));
    clsCfgRead reader(services.files, services.messages);
    reader.FileName = args[2];
    reader.Section = args[3];
    reader.Key = args[4];
    const std::string result = reader.Data();
    if (fileMissing)
        return CliExit::Failed;
    PrintText(out, result);
    // An absent key reads as "Error"; an empty list as "Error" or nothing at all.
    const bool readsOneValue = !reader.Section.empty() && !reader.Key.empty();
    const bool nothing = result == kError || (!readsOneValue && result.empty());
    return nothing ? CliExit::Failed : CliExit::Success;
}

int IniSet(const Arguments& args, Services& services, std::ostream& err)
{
    clsCfgWrite writer(services.files);
    writer.FileName = args[2];
    writer.Section = args[3];
    writer.Key = args[4];
    writer.Value = args[5];
    writer.cWrite();

    // The writer reports nothing, so check that the file now reads as it should.
    const std::string expected = writer.Value.empty()
                                     ? std::string(kError)
                                     : ProfileText::Read("[s]\nk=" + writer.Value, "s", "k", kError,
                                                         clsCfgRead::kBufferSize);
    const std::optional<std::string> contents = services.files.readFile(writer.FileName);
    const bool written = contents && !writer.Section.empty() && !writer.Key.empty() &&
                         ProfileText::Read(*contents, writer.Section, writer.Key, kError,
                                           clsCfgRead::kBufferSize) == expected;
    if (!written) {
        err << "vellumar-cli: could not write [" << writer.Section << "] " << writer.Key << " in "
            << writer.FileName << '\n';
        return CliExit::Failed;
    }
    return CliExit::Success;
}

int RegGet(const Arguments& args, Services& services, std::ostream& out, std::ostream& err)
{
    const std::optional<std::uint32_t> hive = HiveByName(args[2]);
    if (!hive) {
        err << "vellumar-cli: unknown hive " << args[2]
            << " (use HKEY_LOCAL_MACHINE, HKEY_USERS or HKEY_CURRENT_USER)\n\n"
            << CliUsage();
        return CliExit::UsageError;
    }
    clsRegRead reader(services.registry,
                      TrimTrailingBackslash(CutAtNul(services.systemFolders.windowsFolder())));
    reader.RootHive = *hive;
    reader.KeyPath = args[3];
    reader.SubKey = args[4];
    reader.ValueName = args[5];
    const std::string value = reader.RegData();
    if (value.empty())
        return CliExit::Failed;
    out << value << '\n';
    return CliExit::Success;
}

int Where(Services& services, std::ostream& out)
{
    SystemPaths paths;
    const std::string result = GetSystemFolders(services.systemFolders, services.messages, paths);
    out << "ProgramPath: " << services.systemFolders.programFolder() << '\n'
        << "WindowsPath: " << paths.WindowsPath << '\n'
        << "MyDocumentsPath: " << paths.MyDocumentsPath << '\n'
        << "AppDataPath: " << paths.AppDataPath << '\n';
    return IsOK(result) ? CliExit::Success : CliExit::Failed;
}

// demo DIR [--force], the folder and the switch in either order.
int Demo(const Arguments& args, Services& services, std::ostream& out, std::ostream& err)
{
    DemoOptions options;
    for (std::size_t i = 1; i < args.size(); ++i) {
        if (args[i] == "--force" && !options.force) {
            options.force = true;
        } else if (options.folder.empty() && !args[i].empty() && !args[i].starts_with("--")) {
            options.folder = args[i];
        } else {
            err << CliUsage();
            return CliExit::UsageError;
        }
    }
    if (options.folder.empty()) {
        err << CliUsage();
        return CliExit::UsageError;
    }
    options.userName = CurrentUserName();

    const DemoOutcome outcome = BuildDemoEnvironment(services.files, options);
    for (const std::string& note : outcome.notes)
        err << "vellumar-cli: note: " << note << '\n';
    if (!outcome.built) {
        err << "vellumar-cli: demo: " << outcome.error << '\n';
        return CliExit::Failed;
    }
    // Only comments and exports on standard output, so that eval "$(vellumar-cli demo DIR)"
    // sets up the shell.
    const auto tenths = static_cast<unsigned long long>((outcome.bytes + 52428) / 104858);
    out << "# Vellumar demo " << (outcome.replaced ? "rebuilt" : "built") << " in "
        << outcome.folder << ": " << outcome.files << " files, " << tenths / 10 << '.'
        << tenths % 10 << " MB; see home/help/index.html\n"
        << "export WINEPREFIX=" << ShellQuoted(outcome.prefix) << '\n'
        << "export VELLUMAR_HOME=" << ShellQuoted(outcome.home) << '\n';
    return CliExit::Success;
}

} // namespace

std::string CliUsage()
{
    return "Usage: vellumar-cli COMMAND [ARGUMENTS]\n"
           "\n"
           "Commands:\n"
           "  ini get FILE SECTION KEY        print a value of a profile (INI) file; an empty\n"
           "                                  KEY lists the section's keys, an empty SECTION\n"
           "                                  lists the sections, one per line\n"
           "  ini set FILE SECTION KEY VALUE  write a value; an empty VALUE deletes the key\n"
           "  reg get HIVE KEY SUBKEY VALUE   print a registry string value; HIVE is\n"
           "                                  HKEY_LOCAL_MACHINE, HKEY_USERS or HKEY_CURRENT_USER\n"
           "                                  (on Linux: the registry of the Wine prefix)\n"
           "  where                           print the program folder and the system folders\n"
           "  demo DIR [--force]              build a demo installation in DIR (a Wine prefix\n"
           "                                  with a stand-in simulator, a program folder with\n"
           "                                  texture sets) and print the variables to export;\n"
           "                                  a non-empty DIR without an earlier demo needs\n"
           "                                  --force\n" +
           TextureCommandsUsage() +
           "\n"
           "Messages go to standard error as their title and text; a question is answered\n"
           "with its default button (install and restore: No/Cancel, or Yes/OK with --yes).\n"
           "Environment: VELLUMAR_HOME (program folder), WINEPREFIX (Wine prefix, Linux).\n"
           "Exit status: 0 success, 1 nothing found or failed, 2 usage error.\n";
}

int RunCliCommand(const Arguments& args, Services& services, std::ostream& out, std::ostream& err,
                  const SetAnswers& setAnswers)
{
    auto is = [&args](std::size_t count, std::initializer_list<const char*> words) {
        if (args.size() != count)
            return false;
        std::size_t i = 0;
        for (const char* word : words)
            if (args[i++] != word)
                return false;
        return true;
    };

    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h" || args[0] == "help")) {
        out << CliUsage();
        return CliExit::Success;
    }
    if (is(5, {"ini", "get"}))
        return IniGet(args, services, out);
    if (is(6, {"ini", "set"}))
        return IniSet(args, services, err);
    if (is(6, {"reg", "get"}))
        return RegGet(args, services, out, err);
    if (is(1, {"where"}))
        return Where(services, out);
    if (!args.empty() && args[0] == "demo")
        return Demo(args, services, out, err);
    if (const int status = RunTextureCommand(args, services, setAnswers, out, err); status != -1) {
        if (status == CliExit::UsageError)
            err << CliUsage();
        return status;
    }

    err << CliUsage();
    return CliExit::UsageError;
}

} // namespace vellumar
