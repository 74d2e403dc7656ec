#pragma once

#import <Foundation/Foundation.h>

typedef NSInteger SMAppServiceStatus;
enum : SMAppServiceStatus {
    SMAppServiceStatusNotRegistered,
    SMAppServiceStatusEnabled,
    SMAppServiceStatusRequiresApproval,
    SMAppServiceStatusNotFound,
};

@interface SMAppService : NSObject
+ (instancetype)loginItemServiceWithIdentifier:(NSString*)identifier;
- (SMAppServiceStatus)status;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end

extern "C" unsigned char SMLoginItemSetEnabled(CFStringRef identifier, unsigned char enabled);
