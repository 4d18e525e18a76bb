#pragma once

#include <string>

namespace vellumar {

// Which rule chose the program folder, the folder of cloud.ini (and, unless cloud.ini names
// another, of the texture library).
enum class ProgramFolderRule {
    Environment,      // $VELLUMAR_HOME names it
    BesideExecutable, // the executable's own folder: it holds a cloud.ini (a build tree, a
                      // portable copy), or the system keeps a program's data beside it (Windows)
    UserDataFolder,   // the user's own: $XDG_DATA_HOME/vellumar, by default ~/.local/share/vellumar
};

struct ProgramFolderChoice {
    std::string folder; // "" when no rule finds one
    ProgramFolderRule rule = ProgramFolderRule::BesideExecutable;
};

// What the rules look at; the platform gathers it.
struct ProgramFolderFacts {
    std::string vellumarHome;              // $VELLUMAR_HOME
    std::string executableFolder;          // "" when the system does not tell
    bool executableFolderHoldsIni = false; // a cloud.ini lies beside the executable
    // An installed copy keeps its data in the user's own folder (Linux): its executable lies in
    // a folder the user cannot write.
    bool usesUserDataFolder = false;
    std::string xdgDataHome; // $XDG_DATA_HOME
    std::string home;        // $HOME
};

// $VELLUMAR_HOME when set; else the executable's folder when it holds a cloud.ini, or where no
// user data folder is used; else the user data folder ($XDG_DATA_HOME when it is an absolute
// path, as the desktop's rules want, else ~/.local/share) + "/vellumar". Without a home either,
// the executable's folder.
ProgramFolderChoice ChooseProgramFolder(const ProgramFolderFacts& facts);

// The rule in words, as `vellumar-cli where` shows it.
std::string DescribeProgramFolderRule(ProgramFolderRule rule);

} // namespace vellumar
