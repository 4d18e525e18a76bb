#include "config/ProgramFolderRule.h"

namespace vellumar {

ProgramFolderChoice ChooseProgramFolder(const ProgramFolderFacts& facts)
{
    if (!facts.vellumarHome.empty())
        return {facts.vellumarHome, ProgramFolderRule::Environment};
    const ProgramFolderChoice beside{facts.executableFolder, ProgramFolderRule::BesideExecutable};
    if (facts.executableFolderHoldsIni || !facts.usesUserDataFolder)
        return beside;
    // A relative $XDG_DATA_HOME is to be ignored: it would depend on the current folder.
    std::string dataHome = facts.xdgDataHome;
    if (!dataHome.starts_with('/')) {
        if (facts.home.empty())
            return beside;
        dataHome = facts.home + "/.local/share";
    }
    while (dataHome.size() > 1 && dataHome.ends_with('/'))
        dataHome.pop_back();
    return {dataHome + "/vellumar", ProgramFolderRule::UserDataFolder};
}

std::string DescribeProgramFolderRule(ProgramFolderRule rule)
{
    switch (rule) {
    case ProgramFolderRule::Environment:
        return "VELLUMAR_HOME";
    case ProgramFolderRule::BesideExecutable:
        return "the executable's folder";
    case ProgramFolderRule::UserDataFolder:
        return "the user's data folder (XDG_DATA_HOME, by default ~/.local/share)";
    }
    return {};
}

} // namespace vellumar
