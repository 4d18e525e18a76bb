#include "config/SimulatorSidePath.h"
#include "config/WinePrefix.h"

namespace vellumar {

std::string SimulatorSidePath(const std::string& path)
{
    return WinePrefix::WindowsPath(WinePrefix::Location(), path);
}

} // namespace vellumar
