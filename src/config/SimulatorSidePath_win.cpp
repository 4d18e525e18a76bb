#include "config/SimulatorSidePath.h"

namespace vellumar {

std::string SimulatorSidePath(const std::string& path)
{
    std::string windows = path;
    for (char& c : windows)
        if (c == '/')
            c = '\\';
    return windows;
}

} // namespace vellumar
