#include "hosts/mac/HandlePath.h"

#include <array>
#include <fcntl.h>
#include <sys/param.h>

namespace pryvane {

std::string pathOfHandle(int folder)
{
    std::array<char, MAXPATHLEN> path{};
    return fcntl(folder, F_GETPATH, path.data()) == 0 ? path.data() : "";
}

} // namespace pryvane
