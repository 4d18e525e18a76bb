#include "cli/DemoCommand.h"

#include "cli/CommandSet.h"
#include "cli/HelperProgram.h"
#include "common/Services.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace vellumar {

namespace {

struct DemoOptions {
    std::string folder;
    bool force = false;
};

int Demo(const DemoOptions& options, CliContext& context)
{
    if (options.folder.empty()) {
        context.err << "vellumar-cli demo: DIR is empty\n";
        return CliExit::UsageError;
    }
    // The generator is a program of its own beside this one (see tools/demo/DemoMain.cpp).
    const std::string generator = HelperProgramPath("vellumar-demo");
    if (generator.empty()) {
        context.err << "vellumar-cli: demo: the demo generator vellumar-demo is not installed "
                       "beside vellumar-cli (nor in ../libexec/vellumar)\n";
        return CliExit::Failed;
    }
    std::vector<std::string> arguments{options.folder};
    if (options.force)
        arguments.push_back("--force");
    context.out.flush();
    context.err.flush();
    // Returns only when the generator could not be started.
    const std::string why = ReplaceProcessWith(generator, arguments);
    context.err << "vellumar-cli: demo: could not start " << generator << ": " << why << '\n';
    return CliExit::Failed;
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
