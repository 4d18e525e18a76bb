#pragma once

#include <iosfwd>
#include <string>

namespace vellumar {

class FileOperations;

// `vellumar-demo --starter DIR`, which the build runs: writes what a new user's program folder
// starts from (see app/UserProgramFolder.h) into DIR: the button sound of the default cloud.ini
// and its first set, Texture/Clouds/My first set, drawn as the demo's first set is. 0 written,
// 1 failed.
int WriteStarterFolder(const std::string& folder, FileOperations& files, std::ostream& err);

} // namespace vellumar
