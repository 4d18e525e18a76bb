#include "cli/HelperProgram.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace vellumar {

std::string HelperProgramPath(const std::string& name)
{
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error)
        return {};
    // Beside this program in the build tree; where it is installed, the helpers sit apart from
    // the programs people run, in libexec/vellumar beside bin.
    for (const std::filesystem::path& helper :
         {self.parent_path() / name,
          self.parent_path().parent_path() / "libexec" / "vellumar" / name})
        if (::access(helper.c_str(), X_OK) == 0)
            return helper.string();
    return {};
}

std::string ReplaceProcessWith(const std::string& program,
                               const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    ::execv(program.c_str(), argv.data());
    return std::strerror(errno);
}

} // namespace vellumar
