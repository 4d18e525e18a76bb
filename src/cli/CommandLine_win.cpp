// argv arrives in the ANSI code page on Windows; the wide command line has every character.

#include "cli/CommandLine.h"
#include "common/WideText_win.h"

#include <windows.h>

#include <cstdio>
#include <io.h>
#include <shellapi.h>

namespace vellumar {

std::vector<std::string> CommandLineArguments(int argc, char** argv)
{
    int count = 0;
    LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!wide)
        return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(FromWide(wide[i]));
    LocalFree(wide);
    return arguments;
}

bool OutputIsTerminal()
{
    return _isatty(_fileno(stdout)) != 0;
}

void KeepRunningWhenOutputCloses()
{
    // Windows has no signal for a closed pipe: the write fails, and that is all.
}

} // namespace vellumar
