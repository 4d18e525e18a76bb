#include "cli/DemoCommand.h"

#include "cli/CommandSet.h"
#include "common/Services.h"
#include "demo/DemoEnvironment.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

namespace vellumar {

namespace {

int Demo(DemoOptions options, CliContext& context)
{
    // An empty DIR (an unset shell variable, say) would otherwise build in the current folder.
    if (options.folder.empty()) {
        context.err << "vellumar-cli demo: DIR is empty\n";
        return CliExit::UsageError;
    }
    options.userName = CurrentUserName();
    const DemoOutcome outcome = BuildDemoEnvironment(context.services.files, options);
    for (const std::string& note : outcome.notes)
        context.err << "vellumar-cli: note: " << note << '\n';
    if (!outcome.built) {
        context.err << "vellumar-cli: demo: " << outcome.error << '\n';
        return CliExit::Failed;
    }
    // Only comments and exports on standard output, so that eval "$(vellumar-cli demo DIR)"
    // sets up the shell.
    const auto tenths = static_cast<unsigned long long>((outcome.bytes + 52428) / 104858);
    context.out << "# Vellumar demo " << (outcome.replaced ? "rebuilt" : "built") << " in "
                << outcome.folder << ": " << outcome.files << " files, " << tenths / 10 << '.'
                << tenths % 10 << " MB; see home/help/index.html\n"
                << "export WINEPREFIX=" << ShellQuoted(outcome.prefix) << '\n'
                << "export VELLUMAR_HOME=" << ShellQuoted(outcome.home) << '\n';
    return CliExit::Success;
}

} // namespace

void AddDemoCommand(CommandSet& commands)
{
    CliContext& context = commands.context();
    commands.heading("Demo");
    auto options = std::make_shared<DemoOptions>();
    CLI::App& demo = commands.add(commands.root(), "demo", "build a demo installation in DIR",
                                  [options, &context] { return Demo(*options, context); });
    demo.add_option("DIR", options->folder, "the folder to build in")->type_name("")->required();
    demo.add_flag("--force", options->force,
                  "build even in a non-empty folder without an earlier demo");
    demo.footer("DIR gets a Wine prefix with a stand-in simulator (prefix) and a program folder\n"
                "with texture sets (home). Standard output holds only the variables to export:\n"
                "  eval \"$(vellumar-cli demo DIR)\"");
}

} // namespace vellumar
