#include "hosts/mac/MacMachineInfo.h"

#include "hosts/posix/CurrentUser.h"

#include <CoreFoundation/CoreFoundation.h>
#include <IOKit/IOKitLib.h>
#include <SystemConfiguration/SystemConfiguration.h>
#include <array>
#include <memory>
#include <sys/sysctl.h>

namespace pryvane {

namespace {

struct Release {
    void operator()(const void* object) const { CFRelease(object); }
};
using Owned = std::unique_ptr<const void, Release>;

/// Takes the object over; none for what is no text, or none that a person can read.
std::optional<std::string> textOf(CFTypeRef object)
{
    const Owned owned(object);
    if (!object || CFGetTypeID(object) != CFStringGetTypeID())
        return std::nullopt;
    std::array<char, 1024> text{};
    const bool fits = CFStringGetCString(static_cast<CFStringRef>(object), text.data(), text.size(),
                                         kCFStringEncodingUTF8) != 0;
    return fits && text[0] != '\0' ? std::optional<std::string>(text.data()) : std::nullopt;
}

} // namespace

std::optional<std::string> MacMachineInfo::computerName()
{
    return textOf(SCDynamicStoreCopyComputerName(nullptr, nullptr));
}

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

std::optional<std::string> MacMachineInfo::serialNumber()
{
    // 0 is the main port under its older and its newer name.
    const io_service_t expert =
        IOServiceGetMatchingService(0, IOServiceMatching("IOPlatformExpertDevice"));
    if (expert == 0)
        return std::nullopt;
    const Owned key(
        CFStringCreateWithCString(nullptr, "IOPlatformSerialNumber", kCFStringEncodingUTF8));
    CFTypeRef value = key ? IORegistryEntryCreateCFProperty(
                                expert, static_cast<CFStringRef>(key.get()), nullptr, 0)
                          : nullptr;
    IOObjectRelease(expert);
    return textOf(value);
}

} // namespace pryvane
