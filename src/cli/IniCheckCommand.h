#pragma once

#include <iosfwd>
#include <string>

namespace vellumar {

struct Services;

// `vellumar-cli ini check [FILE]`: prints one line per problem of a cloud.ini file (the
// program's own, in the program folder, when `file` is empty) and a last line that counts
// them. 0 when nothing is wrong, 1 when something is or the file cannot be read.
int RunIniCheckCommand(const std::string& file, Services& services, std::ostream& out,
                       std::ostream& err);

} // namespace vellumar
