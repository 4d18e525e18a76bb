#include "cli/CommandLine.h"

#include <csignal>
#include <unistd.h>

namespace vellumar {

std::vector<std::string> CommandLineArguments(int argc, char** argv)
{
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

bool OutputIsTerminal()
{
    return isatty(STDOUT_FILENO) == 1;
}

void KeepRunningWhenOutputCloses()
{
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace vellumar
