#include "config/ProgramPaths.h"

#include "common/PathText.h"

namespace vellumar {

std::string ProgramPaths::IniFile() const
{
    return JoinPath(ProgramPath, IniName);
}

} // namespace vellumar
