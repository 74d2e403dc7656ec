#pragma once

#import <Foundation/Foundation.h>

enum : NSUInteger { UNAuthorizationOptionAlert = 1 << 2 };

@interface UNNotificationContent : NSObject
@end
@interface UNMutableNotificationContent : UNNotificationContent
- (void)setTitle:(NSString*)title;
- (void)setBody:(NSString*)body;
@end
@class UNNotificationTrigger;
@interface UNNotificationRequest : NSObject
+ (instancetype)requestWithIdentifier:(NSString*)identifier
                              content:(UNNotificationContent*)content
                              trigger:(UNNotificationTrigger*)trigger;
@end
@interface UNUserNotificationCenter : NSObject
+ (UNUserNotificationCenter*)currentNotificationCenter;
- (void)requestAuthorizationWithOptions:(NSUInteger)options
                      completionHandler:(void (^)(BOOL, NSError*))handler;
- (void)addNotificationRequest:(UNNotificationRequest*)request
         withCompletionHandler:(void (^)(NSError*))handler;
@end
