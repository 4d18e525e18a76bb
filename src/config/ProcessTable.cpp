#include "config/ProcessTable.h"

#include "common/TextCompare.h"

namespace vellumar {

namespace {

std::string_view BaseName(std::string_view argument)
{
    const std::size_t cut = argument.find_last_of("/\\");
    return cut == std::string_view::npos ? argument : argument.substr(cut + 1);
}

} // namespace

bool CommandLineNamesProgram(std::string_view commandLine, std::string_view executable)
{
    if (executable.empty())
        return false;
    std::size_t start = 0;
    for (int argument = 0; argument < 2 && start < commandLine.size(); ++argument) {
        std::size_t end = commandLine.find('\0', start);
        if (end == std::string_view::npos)
            end = commandLine.size();
        if (EqualsIgnoreCase(BaseName(commandLine.substr(start, end - start)), executable))
            return true;
        start = end + 1;
    }
    return false;
}

} // namespace vellumar
