#include "hosts/mac/ActivationDockIcon.h"

#import <AppKit/AppKit.h>

namespace pryvane {

void ActivationDockIcon::setPolicy(ActivationPolicy policy)
{
    m_policy = policy;
    @autoreleasepool {
        [[NSApplication sharedApplication]
            setActivationPolicy:policy == ActivationPolicy::Regular
                                    ? NSApplicationActivationPolicyRegular
                                    : NSApplicationActivationPolicyAccessory];
    }
}

} // namespace pryvane
