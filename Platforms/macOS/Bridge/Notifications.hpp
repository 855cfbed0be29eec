/// Notification centres as the kit's subscriptions.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#import <Foundation/Foundation.h>

#include <functional>

namespace vireline::macos {

/// Calls `handler` on the main queue for every notification of this name, from any sender, for as
/// long as the subscription lives.
[[nodiscard]] Subscription observe(NSNotificationCenter* _Nonnull center,
                                   NSNotificationName _Nonnull name,
                                   std::function<void(NSNotification* _Nonnull)> handler);

}
