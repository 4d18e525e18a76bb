#include "cli/IniCommands.h"

#include "cli/CommandSet.h"
#include "cli/IniCheckCommand.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "config/ProfileText.h"
#include "config/clsCfgRead.h"
#include "config/clsCfgWrite.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>

namespace vellumar {

namespace {

// A NUL-separated list prints one name per line.
void PrintText(std::ostream& out, const std::string& text)
{
    for (char c : text)
        out.put(c == '\0' ? '\n' : c);
    out.put('\n');
}

int IniGet(const CommandSet::Texts& args, CliContext& context)
{
    Services& services = context.services;
    const bool fileMissing = IsError(FileExists(services.files, args[0]));
    // A pipe would make the reader wait for a writer, a folder reads as nothing: say what it is.
    if (const std::string why = WhyNotAPlainFile(services.files, args[0]); !why.empty()) {
        context.err << "vellumar-cli: " << args[0] << why << '\n';
        return CliExit::Failed;
    }
    clsCfgRead reader(services.files, services.messages);
    reader.FileName = args[0];
    reader.Section = args[1];
    reader.Key = args[2];
    const std::string result = reader.Data();
    if (fileMissing)
        return CliExit::Failed;
    PrintText(context.out, result);
    // An absent key reads as "Error"; an empty list as "Error" or nothing at all.
    const bool readsOneValue = !reader.Section.empty() && !reader.Key.empty();
    const bool nothing = result == kError || (!readsOneValue && result.empty());
    return nothing ? CliExit::Failed : CliExit::Success;
}

int IniSet(const CommandSet::Texts& args, CliContext& context)
{
    clsCfgWrite writer(context.services.files);
    writer.FileName = args[0];
    writer.Section = args[1];
    writer.Key = args[2];
    writer.Value = args[3];
    writer.cWrite();

    // The writer reports nothing, so check that the file now reads as it should.
    const std::string expected = writer.Value.empty()
                                     ? std::string(kError)
                                     : ProfileText::Read("[s]\nk=" + writer.Value, "s", "k", kError,
                                                         clsCfgRead::kBufferSize);
    const std::optional<std::string> contents = context.services.files.readFile(writer.FileName);
    const bool written = contents && !writer.Section.empty() && !writer.Key.empty() &&
                         clsCfgRead::DataOf(ProfileText::ProfileDocument(*contents), writer.Section,
                                            writer.Key) == expected;
    if (!written) {
        context.err << "vellumar-cli: could not write [" << writer.Section << "] " << writer.Key
                    << " in " << writer.FileName << '\n';
        return CliExit::Failed;
    }
    return CliExit::Success;
}

} // namespace

void AddIniCommands(CommandSet& commands)
{
    CliContext& context = commands.context();
    commands.heading("Profiles and system");
    CLI::App& ini = commands.group(commands.root(), "ini", "read and write profile (INI) files");

    commands
        .add(ini, "get", "print a value of a profile (INI) file (\"Error\" when absent)",
             {{"FILE", "the profile file"},
              {"SECTION", "the section; \"\" lists the sections, one per line"},
              {"KEY", "the key; \"\" lists the section's keys, one per line"}},
             [&context](const CommandSet::Texts& args) { return IniGet(args, context); })
        .footer("Exit status: 0 found, 1 absent or nothing listed, 2 usage error.");

    commands.add(ini, "set", "write a value to a profile (INI) file",
                 {{"FILE", "the profile file; made when missing"},
                  {"SECTION", "the section"},
                  {"KEY", "the key"},
                  {"VALUE", "the value; \"\" deletes the key"}},
                 [&context](const CommandSet::Texts& args) { return IniSet(args, context); });

    commands
        .add(ini, "check", "check a cloud.ini: one line per problem, with its line number",
             {{"FILE", "the file to check (default: the program's own cloud.ini)", false}},
             [&context](const CommandSet::Texts& args) {
                 return RunIniCheckCommand(args[0], context.services, context.out, context.err);
             })
        .footer("Exit status: 0 nothing wrong, 1 something is, 2 usage error.");
}

} // namespace vellumar
