#include "Desktop/CFDockPreferences.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <utility>

/// Receives distributed notifications. Only the selector-based call takes a suspension behaviour,
/// which has them delivered immediately; otherwise an application that is not active receives them
/// once it becomes active, and this one rarely does.
@interface VirelineDistributedObserver : NSObject
- (instancetype)initWithFunction:(std::function<void()>)handler;
- (void)notificationPosted:(NSNotification*)notification;
@end

@implementation VirelineDistributedObserver {
    std::function<void()> _handler;
}

- (instancetype)initWithFunction:(std::function<void()>)handler {
    self = [super init];
    if (self != nil)
        _handler = std::move(handler);
    return self;
}

- (void)notificationPosted:(NSNotification*)notification {
    // Copied, since the handler may destroy this object.
    const auto handler = _handler;
    handler();
}

@end

namespace vireline::macos {

std::optional<PropertyList> CFDockPreferences::persistentApps() {
    return attemptOr(
        std::optional<PropertyList>{}, "CFPreferences", []() -> std::optional<PropertyList> {
            const CFStringRef domain = CFSTR("com.apple.dock");
            CFPreferencesAppSynchronize(domain);
            const id value =
                CFBridgingRelease(CFPreferencesCopyAppValue(CFSTR("persistent-apps"), domain));
            if (value == nil)
                return std::nullopt;
            return toPropertyList(value);
        });
}

Subscription CFDockPreferences::observeChanges(std::function<void()> handler) {
    VirelineDistributedObserver* const observer =
        [[VirelineDistributedObserver alloc] initWithFunction:std::move(handler)];
    NSDistributedNotificationCenter* center = nil;
    attempt("addObserver", [&] {
        center = NSDistributedNotificationCenter.defaultCenter;
        [center addObserver:observer
                      selector:@selector(notificationPosted:)
                          name:@"com.apple.dock.prefchanged"
                        object:nil
            suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
    });
    return Subscription::calling([center, observer] {
        attempt("removeObserver", [&] { [center removeObserver:observer]; });
    });
}

}
