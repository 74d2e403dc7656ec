#include "hosts/mac/ServiceLoginItem.h"

#include "core/Escape.h"
#include "hosts/mac/CocoaText.h"

#import <AppKit/AppKit.h>
#import <ServiceManagement/ServiceManagement.h>

namespace pryvane {

namespace {

Error notChanged(std::string_view reason)
{
    return {"start at login cannot be changed (" + forScreen(reason) +
            "); the program must lie in the Applications folder, with its helper inside"};
}

} // namespace

Result<Done> ServiceLoginItem::setEnabled(bool enabled)
{
    @autoreleasepool {
        NSString* helper = cocoaText(m_helper);
        if (Class service = NSClassFromString(@"SMAppService")) { // macOS 13 and later
            SMAppService* item = [service loginItemServiceWithIdentifier:helper];
            const SMAppServiceStatus status = [item status];
            const bool isOut =
                status == SMAppServiceStatusNotRegistered || status == SMAppServiceStatusNotFound;
            if (!enabled && isOut)
                return Done{};
            NSError* error = nil;
            const BOOL done = enabled ? [item registerAndReturnError:&error]
                                      : [item unregisterAndReturnError:&error];
            return done ? Result<Done>(Done{})
                        : Result<Done>(notChanged(plainText([error localizedDescription])));
        }
        return SMLoginItemSetEnabled((CFStringRef)helper, enabled)
                   ? Result<Done>(Done{})
                   : Result<Done>(notChanged("the system refused it"));
    }
}

bool ServiceLoginItem::helperIsRunning()
{
    @autoreleasepool {
        return [[NSRunningApplication runningApplicationsWithBundleIdentifier:cocoaText(m_helper)]
                   count] > 0;
    }
}

} // namespace pryvane
