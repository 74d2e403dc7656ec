#include "platform/posix/LoginUser.h"

#include <pwd.h>
#include <unistd.h>

namespace pryvane {

std::string loginUser()
{
    const passwd* entry = getpwuid(geteuid());
    return entry && entry->pw_name ? entry->pw_name : "";
}

} // namespace pryvane
