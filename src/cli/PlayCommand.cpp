#include "cli/PlayCommand.h"

#include "cli/CommandSet.h"
#include "cli/HelperProgram.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/Services.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>

namespace vellumar {

namespace {

int Play(const std::string& file, CliContext& context)
{
    FileOperations& files = context.services.files;
    // Found as the program would find it: a name from Windows may differ in letter case.
    const std::string path = files.resolve(file);
    if (files.kindOf(path) == PathKind::Missing) {
        context.err << "vellumar-cli: play: " << file << ": no such file\n";
        return CliExit::Failed;
    }
    if (const std::string why = WhyNotAPlainFile(files, path); !why.empty()) {
        context.err << "vellumar-cli: play: " << file << why << '\n';
        return CliExit::Failed;
    }
    // The player is Qt's, and lives in a program of its own beside this one (see
    // tools/play/PlayMain.cpp): every other command starts without loading Qt.
    const std::string player = HelperProgramPath("vellumar-play");
    if (player.empty()) {
        context.err << "vellumar-cli: play: the player vellumar-play is not installed beside "
                       "vellumar-cli (nor in ../libexec/vellumar)\n";
        return CliExit::Failed;
    }
    context.out.flush();
    context.err.flush();
    // Returns only when the player could not be started.
    const std::string why = ReplaceProcessWith(player, {path});
    context.err << "vellumar-cli: play: could not start " << player << ": " << why << '\n';
    return CliExit::Failed;
}

} // namespace

void AddPlayCommand(CommandSet& commands)
{
    CliContext& context = commands.context();
    commands.heading("Sound");
    auto file = std::make_shared<std::string>();
    CLI::App& play = commands.add(commands.root(), "play", "play a sound or music file to its end",
                                  [file, &context] { return Play(*file, context); });
    play.add_option("FILE", *file, "a WAV, MP3 or MIDI file")->type_name("")->required();
    play.footer("Ends with the file (exit status 0), also on a machine without a sound device;\n"
                "status 1, with the reason on standard error, when it cannot be played.");
}

} // namespace vellumar
