#include "config/ProcessTable.h"

#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace vellumar {

namespace {

// Runs once a second for as long as the program does: plain system calls and one buffer on
// the stack, no allocation per process.
bool CommandLineAtNames(int folder, const char* path, std::string_view executable)
{
    const int file = openat(folder, path, O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false; // gone in the meantime, or not ours to read
    char commandLine[4096];
    const ssize_t read = ::read(file, commandLine, sizeof commandLine);
    close(file);
    // Nothing to read: a kernel thread or a zombie.
    return read > 0 &&
           CommandLineNamesProgram({commandLine, static_cast<std::size_t>(read)}, executable);
}

} // namespace

long FindProcessNamed(const std::string& procRoot, std::string_view executable)
{
    DIR* processes = opendir(procRoot.c_str());
    if (!processes)
        return 0;
    const int folder = dirfd(processes);
    char path[300];
    long found = 0;
    while (const dirent* entry = readdir(processes)) {
        const char* name = entry->d_name;
        if (name[0] < '1' || name[0] > '9')
            continue;
        const int length = std::snprintf(path, sizeof path, "%s/cmdline", name);
        if (length <= 0 || static_cast<std::size_t>(length) >= sizeof path)
            continue;
        if (CommandLineAtNames(folder, path, executable)) {
            found = std::strtol(name, nullptr, 10);
            break;
        }
    }
    closedir(processes);
    return found;
}

bool ProcessNamed(const std::string& procRoot, long processId, std::string_view executable)
{
    if (processId <= 0)
        return false;
    char path[600];
    const int length =
        std::snprintf(path, sizeof path, "%s/%ld/cmdline", procRoot.c_str(), processId);
    return length > 0 && static_cast<std::size_t>(length) < sizeof path &&
           CommandLineAtNames(AT_FDCWD, path, executable);
}

} // namespace vellumar
