// vellumar-demo DIR [--force]: the demo generator as a program of its own. It draws with Qt, and
// loading Qt's libraries costs every run of a program that links them: vellumar-cli stays light
// for scripts and runs this one for its `demo` command, which checks the arguments first.

#include "common/FileOperations.h"
#include "demo/DemoProgram.h"
#include "demo/DemoStarter.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <string>

namespace {

// The simulator's stand-in is built beside this program; only Linux runs it in place of fs9.exe
// (elsewhere the demo keeps a placeholder).
std::string StandinBesideThisProgram()
{
#ifdef __linux__
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error)
        return (self.parent_path() / "vellumar-standin").string();
#endif
    return {};
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Builds a Vellumar demo installation in DIR (vellumar-cli demo runs this).",
                 "vellumar-demo");
    std::string folder;
    bool force = false;
    bool starter = false;
    app.add_option("DIR", folder, "the folder to build in")->required();
    app.add_flag("--force", force, "build even in a non-empty folder without an earlier demo");
    app.add_flag("--starter", starter,
                 "write only what a new user's program folder starts from (the build does)");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        // Help is a success; any mistake is a usage error, status 2, as in vellumar-cli.
        return app.exit(error) == 0 ? 0 : 2;
    }
    const auto files = vellumar::CreatePlatformFileOperations();
    if (starter)
        return vellumar::WriteStarterFolder(folder, *files, std::cerr);
    return vellumar::RunDemoProgram(folder, force, *files, std::cout, std::cerr,
                                    StandinBesideThisProgram());
}
