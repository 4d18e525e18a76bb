#pragma once

#include <cstdint>

namespace vellumar {

// This process's id, as the system numbers processes.
std::uint32_t CurrentProcessId();

// Whether a process of this id runs now (a process of another user counts as well).
bool IsProcessRunning(std::uint32_t processId);

} // namespace vellumar
