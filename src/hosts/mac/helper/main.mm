/// The login helper's program: started by the system at login, starts Pryvane, and quits when
/// Pryvane says so or says nothing for a while. Its bundle lies in Contents/Library/LoginItems.
#include "hosts/mac/CocoaText.h"
#include "hosts/mac/NativeMessages.h"

#import <AppKit/AppKit.h>

int main()
{
    using namespace pryvane;
    constexpr NSTimeInterval kPatience = 120;
    @autoreleasepool {
        NSURL* application = [[NSBundle mainBundle] bundleURL];
        for (int above = 0; above < 4; ++above) // Contents/Library/LoginItems/NAME.app
            application = [application URLByDeletingLastPathComponent];
        NSString* identifier = [[NSBundle bundleWithURL:application] bundleIdentifier];
        if (!identifier)
            return 1;
        bool isOver = false;
        NativeMessages messages;
        const auto observation =
            messages.observe(kTerminateHelper, [&](const std::string& object) {
                if (object == plainText(identifier))
                    isOver = true;
            });
        if (![[NSWorkspace sharedWorkspace] openURL:application])
            return 1;
        NSDate* end = [NSDate dateWithTimeIntervalSinceNow:kPatience];
        while (!isOver && [end timeIntervalSinceNow] > 0)
            [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                     beforeDate:[NSDate dateWithTimeIntervalSinceNow:1]];
    }
    return 0;
}
