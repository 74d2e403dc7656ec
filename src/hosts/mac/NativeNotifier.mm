#include "hosts/mac/NativeNotifier.h"

#include "core/Escape.h"
#include "hosts/mac/CocoaText.h"

#import <UserNotifications/UserNotifications.h>

namespace pryvane {

void NativeNotifier::deliver(const std::string& title, const std::string& informativeText)
{
    @autoreleasepool {
        if (![[NSBundle mainBundle] bundleIdentifier])
            return;
        UNUserNotificationCenter* center = [UNUserNotificationCenter currentNotificationCenter];
        if (!m_asked) {
            m_asked = true;
            [center requestAuthorizationWithOptions:UNAuthorizationOptionAlert
                                  completionHandler:^(BOOL, NSError*) {
                                  }];
        }
        UNMutableNotificationContent* content =
            [[[UNMutableNotificationContent alloc] init] autorelease];
        [content setTitle:cocoaText(title)];
        [content setBody:cocoaText(informativeText)];
        UNNotificationRequest* request =
            [UNNotificationRequest requestWithIdentifier:[[NSProcessInfo processInfo] globallyUniqueString]
                                                 content:content
                                                 trigger:nil];
        [center addNotificationRequest:request withCompletionHandler:nil];
    }
}

} // namespace pryvane
