// What needs no Cocoa.
#include "hosts/mac/MacMachineInfo.h"

#include "hosts/posix/CurrentUser.h"

#include <array>
#include <sys/sysctl.h>

namespace pryvane {

std::string MacMachineInfo::loginName()
{
    return loginUser();
}

std::string MacMachineInfo::machineModel()
{
    std::array<char, 256> model{};
    std::size_t size = model.size() - 1;
    if (sysctlbyname("hw.model", model.data(), &size, nullptr, 0) != 0 || model[0] == '\0')
        return "Just an Apple Computer";
    return model.data();
}

} // namespace pryvane
