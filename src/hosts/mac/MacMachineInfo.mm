#include "hosts/mac/MacMachineInfo.h"

#include "hosts/mac/CocoaText.h"

#import <IOKit/IOKitLib.h>

namespace pryvane {

std::optional<std::string> MacMachineInfo::computerName()
{
    @autoreleasepool {
        const std::string name = plainText([[NSHost currentHost] localizedName]);
        return name.empty() ? std::nullopt : std::optional(name);
    }
}

std::optional<std::string> MacMachineInfo::serialNumber()
{
    @autoreleasepool {
        // 0 is the main port under its older and its newer name.
        const io_service_t expert =
            IOServiceGetMatchingService(0, IOServiceMatching("IOPlatformExpertDevice"));
        if (expert == 0)
            return std::nullopt;
        CFTypeRef value =
            IORegistryEntryCreateCFProperty(expert, CFSTR("IOPlatformSerialNumber"), nullptr, 0);
        IOObjectRelease(expert);
        if (!value)
            return std::nullopt;
        NSObject* object = [(NSObject*)value autorelease];
        if (![object isKindOfClass:[NSString class]])
            return std::nullopt;
        const std::string serial = plainText((NSString*)object);
        return serial.empty() ? std::nullopt : std::optional(serial);
    }
}

} // namespace pryvane
