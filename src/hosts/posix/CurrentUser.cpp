#include "hosts/posix/CurrentUser.h"

#include <pwd.h>
#include <unistd.h>

namespace pryvane {

std::string loginUser()
{
    const passwd* entry = getpwuid(geteuid());
    return entry && entry->pw_name ? entry->pw_name : "";
}

bool isShortName(std::string_view user)
{
    return !user.empty() && user != "." && user != ".." &&
           user.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::string notAShortName(std::string_view user)
{
    return "\"" + std::string(user) +
           "\" is not a user's short name; give the name of a folder in /Users, such as --user "
           "alice";
}

} // namespace pryvane
