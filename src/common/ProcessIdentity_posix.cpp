#include "common/ProcessIdentity.h"

#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace vellumar {

std::uint32_t CurrentProcessId()
{
    return static_cast<std::uint32_t>(::getpid());
}

bool IsProcessRunning(std::uint32_t processId)
{
    if (processId == 0 || processId > static_cast<std::uint32_t>(INT32_MAX))
        return false;
    // Signal 0 only asks; another user's process answers "not permitted" but is there.
    return ::kill(static_cast<pid_t>(processId), 0) == 0 || errno == EPERM;
}

} // namespace vellumar
