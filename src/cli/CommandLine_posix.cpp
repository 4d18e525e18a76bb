#include "cli/CommandLine.h"

namespace vellumar {

std::vector<std::string> CommandLineArguments(int argc, char** argv)
{
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

} // namespace vellumar
