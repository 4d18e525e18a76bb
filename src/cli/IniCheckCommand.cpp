#include "cli/IniCheckCommand.h"

#include "app/CloudIniCheck.h"
#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "config/ProgramPaths.h"
#include "config/SystemFolders.h"

#include <ostream>

namespace vellumar {

int RunIniCheckCommand(const std::string& file, Services& services, std::ostream& out,
                       std::ostream& err)
{
    std::string path = file;
    if (path.empty()) {
        ProgramPaths paths;
        paths.ProgramPath = TrimTrailingBackslash(services.systemFolders.programFolder());
        path = paths.IniFile();
    }
    if (IsError(FileExists(services.files, path))) {
        err << "vellumar-cli: no such file: " << path << '\n';
        return 1;
    }
    const std::vector<IniFinding> findings = CheckCloudIni(path, services);
    for (const IniFinding& finding : findings)
        out << FormatFinding(path, finding) << '\n';
    if (findings.empty())
        out << path << ": no problems found\n";
    else
        out << path << ": " << findings.size() << (findings.size() == 1 ? " problem" : " problems")
            << '\n';
    return findings.empty() ? 0 : 1;
}

} // namespace vellumar
