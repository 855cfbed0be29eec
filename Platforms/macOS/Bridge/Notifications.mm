#include "Bridge/Notifications.hpp"

#include "Bridge/Attempt.hpp"
#include "Foundation/NonCopyable.hpp"

#import <AppKit/AppKit.h>

#include <memory>
#include <utility>

namespace vireline::macos {
namespace {

using NotificationHandler = std::function<void(NSNotification*)>;

/// Removes the observer when it is destroyed.
struct Observation : private NonCopyable {
    Observation(NSNotificationCenter* observed, NotificationHandler called)
        : center(observed), handler(std::move(called)) {}
    ~Observation() {
        if (id<NSObject> installed = token; installed != nil)
            attempt("removeObserver", [&] { [center removeObserver:installed]; });
    }

    NSNotificationCenter* center;
    NotificationHandler handler;
    id<NSObject> token = nil;
};

}

NSNotificationCenter* ownCenter() {
    return attemptOr<NSNotificationCenter*>(nil, "defaultCenter",
                                            [] { return NSNotificationCenter.defaultCenter; });
}

NSNotificationCenter* workspaceCenter() {
    return attemptOr<NSNotificationCenter*>(
        nil, "notificationCenter", [] { return NSWorkspace.sharedWorkspace.notificationCenter; });
}

Subscription observe(NSNotificationCenter* center, NSNotificationName name,
                     std::function<void(NSNotification*)> handler) {
    auto observation = std::make_shared<Observation>(center, std::move(handler));
    const std::weak_ptr<Observation> weak = observation;
    // Created outside the lambda: inside it, the block would capture `weak` by reference, as the
    // lambda does.
    void (^const posted)(NSNotification*) = ^(NSNotification* notification) {
      if (const auto observed = weak.lock())
          observed->handler(notification);
    };
    attempt("addObserverForName", [&] {
        observation->token = [center addObserverForName:name
                                                 object:nil
                                                  queue:NSOperationQueue.mainQueue
                                             usingBlock:posted];
    });
    return Subscription{std::move(observation)};
}

}
