#include "demo/DemoEnvironment.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace vellumar {

std::string CurrentUserName()
{
    if (const char* user = std::getenv("USER"); user && *user)
        return user;
    if (const passwd* entry = getpwuid(getuid()); entry && entry->pw_name && *entry->pw_name)
        return entry->pw_name;
    return "user";
}

} // namespace vellumar
