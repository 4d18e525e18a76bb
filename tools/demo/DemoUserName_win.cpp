#include "demo/DemoEnvironment.h"

#include <cstdlib>

namespace vellumar {

// The demo's prefix serves Linux; on Windows the name only has to be a plausible one.
std::string CurrentUserName()
{
    if (const char* user = std::getenv("USERNAME"); user && *user)
        return user;
    return "user";
}

} // namespace vellumar
