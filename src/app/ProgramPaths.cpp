#include "ProgramPaths.h"

#include "PathText.h"

namespace vellumar {

std::string ProgramPaths::IniFile() const
{
    return JoinPath(ProgramPath, IniName);
}

} // namespace vellumar
