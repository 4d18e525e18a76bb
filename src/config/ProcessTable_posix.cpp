#include "config/ProcessTable.h"

#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace vellumar {

long FindProcessNamed(const std::string& procRoot, std::string_view executable)
{
    // Runs once a second for as long as the program does: plain system calls and one buffer on
    // the stack, no allocation per process.
    DIR* processes = opendir(procRoot.c_str());
    if (!processes)
        return 0;
    char path[512];
    char commandLine[4096];
    long found = 0;
    while (const dirent* entry = readdir(processes)) {
        const char* name = entry->d_name;
        if (name[0] < '1' || name[0] > '9')
            continue;
        const int length =
            std::snprintf(path, sizeof path, "%s/%s/cmdline", procRoot.c_str(), name);
        if (length <= 0 || static_cast<std::size_t>(length) >= sizeof path)
            continue;
        const int file = open(path, O_RDONLY | O_CLOEXEC);
        if (file < 0)
            continue; // gone in the meantime, or not ours to read
        const ssize_t read = ::read(file, commandLine, sizeof commandLine);
        close(file);
        if (read <= 0)
            continue; // a kernel thread or a zombie
        if (CommandLineNamesProgram({commandLine, static_cast<std::size_t>(read)}, executable)) {
            found = std::strtol(name, nullptr, 10);
            break;
        }
    }
    closedir(processes);
    return found;
}

} // namespace vellumar
