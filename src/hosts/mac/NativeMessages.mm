#include "hosts/mac/NativeMessages.h"

#include "hosts/mac/CocoaText.h"

@interface PryvaneMessageObserver : NSObject {
@public
    std::shared_ptr<pryvane::DistributedNotifications::Handler> handler;
}
- (void)received:(NSNotification*)notification;
@end

@implementation PryvaneMessageObserver
- (void)received:(NSNotification*)notification
{
    // The handler may end the observation.
    const auto called = handler;
    id object = [notification object];
    if (called && *called)
        (*called)([object isKindOfClass:[NSString class]] ? pryvane::plainText((NSString*)object)
                                                          : std::string());
}
@end

namespace pryvane {

namespace {

NSDistributedNotificationCenter* center()
{
    return (NSDistributedNotificationCenter*)[NSDistributedNotificationCenter defaultCenter];
}

class NativeObservation final : public DistributedNotifications::Observation {
public:
    NativeObservation(std::string_view name, DistributedNotifications::Handler handler)
        : m_observer([[PryvaneMessageObserver alloc] init])
    {
        m_observer->handler =
            std::make_shared<DistributedNotifications::Handler>(std::move(handler));
        // Also while another program is in front.
        [center() addObserver:m_observer
                     selector:@selector(received:)
                         name:cocoaText(name)
                       object:nil
           suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
    }
    ~NativeObservation() override
    {
        m_observer->handler.reset();
        [center() removeObserver:m_observer];
        [m_observer release];
    }

private:
    PryvaneMessageObserver* m_observer;
};

} // namespace

void NativeMessages::post(std::string_view name, std::string_view object)
{
    @autoreleasepool {
        [center() postNotificationName:cocoaText(name)
                                object:cocoaText(object)
                              userInfo:nil
                    deliverImmediately:YES];
    }
}

std::unique_ptr<DistributedNotifications::Observation> NativeMessages::observe(std::string_view name,
                                                                               Handler handler)
{
    @autoreleasepool {
        return std::make_unique<NativeObservation>(name, std::move(handler));
    }
}

} // namespace pryvane
