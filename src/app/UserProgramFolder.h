#pragma once

#include "app/DataFolderChecks.h"
#include "config/ProgramFolderRule.h"

#include <string>

namespace vellumar {

class FileOperations;
struct ProgramPaths;
struct Services;

// What an installed program ships for a new user's program folder, in its shared data folder:
//   cloud.ini   the commented default configuration
//   starter/    the rest of a ready folder: the button sound and a first texture set, drawn by
//               the demo generator when the program was built
inline constexpr char kStarterFolderName[] = "starter";

struct UserProgramFolderResult {
    bool created = false; // cloud.ini was put there now
    std::string problem;  // why the folder could not be made; "" when it is ready
};

// Makes `programFolder` ready for the start-up when it holds no cloud.ini: the starter's files,
// the data folders the start-up checks (Texture, Splash Screen, Situation and the sound
// channels' folders) and, last, cloud.ini. A file already there is never replaced. A folder
// that does not exist yet is built under a temporary name beside it and renamed into place, so
// that a half-made folder is never taken for a ready one, and two programs starting at once
// end up with one folder.
UserProgramFolderResult MakeUserProgramFolder(FileOperations& files,
                                              const std::string& programFolder,
                                              const std::string& sharedDataFolder);

// Where the library lives and how to add sets: said once, after the folder was made.
std::string UserProgramFolderWelcomeText(const std::string& programFolder);

// The start-up's part: in the user's own data folder only, makes it when needed and says so once
// through the message box; a folder that cannot be made ends the program with the reason.
StartUpOutcome PrepareUserProgramFolder(Services& services, const ProgramPaths& paths,
                                        ProgramFolderRule rule);

} // namespace vellumar
