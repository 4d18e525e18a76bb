#include "common/ProcessIdentity.h"

#include <windows.h>

namespace vellumar {

std::uint32_t CurrentProcessId()
{
    return GetCurrentProcessId();
}

bool IsProcessRunning(std::uint32_t processId)
{
    if (processId == 0)
        return false;
    HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, processId);
    if (!process)
        return GetLastError() == ERROR_ACCESS_DENIED; // there, but not ours to open
    // A process that has ended can still be opened while someone holds a handle to it.
    const bool running = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    CloseHandle(process);
    return running;
}

} // namespace vellumar
