// vellumar-standin [--simulator FOLDER] [--config FILE]: a stand-in for Flight Simulator 2004 on
// the demo installation. It shows the sky that is installed in the simulator folder and the
// start situation named in fs9.cfg, so that Vellumar's "Install & Start" can be seen at work
// without the simulator.

#include "standin/StandinScene.h"
#include "standin/StandinWindow_qt.h"

#include <QApplication>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>

int main(int argc, char** argv)
{
    CLI::App app("Stands in for Flight Simulator 2004: shows the sky installed in the simulator "
                 "folder and the start situation of fs9.cfg.",
                 "vellumar-standin");
    std::string simulator;
    std::string config;
    app.add_option("--simulator", simulator,
                   "the simulator folder (the one with texture and UIRES); default: the working "
                   "folder");
    app.add_option("--config", config, "the fs9.cfg to read the start situation from");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    if (simulator.empty()) {
        std::error_code error;
        simulator = std::filesystem::current_path(error).string();
    }

#ifndef _WIN32
    // Started from a script, the stand-in may outlive the pipe its output went to; a message
    // written there must not end it.
    std::signal(SIGPIPE, SIG_IGN);
#endif
    const char* ready = std::getenv("VELLUMAR_EXIT_WHEN_READY");
    QApplication application(argc, argv);
    vellumar::standin::StandinWindow window({simulator, config,
                                             vellumar::standin::PrefixOfSimulator(simulator),
                                             ready && *ready && std::string(ready) != "0"});
    window.show();
    return application.exec();
}
