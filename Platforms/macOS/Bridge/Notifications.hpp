/// Observes notifications, as subscriptions of the kit.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#import <Foundation/Foundation.h>

#include <functional>

namespace vireline::macos {

/// The application's own notification centre, and that of NSWorkspace. Nil if the system raised an
/// exception.
[[nodiscard]] NSNotificationCenter* _Nullable ownCenter();
[[nodiscard]] NSNotificationCenter* _Nullable workspaceCenter();

/// Calls `handler` on the main queue for every notification of this name, from any sender, for as
/// long as the subscription lives.
[[nodiscard]] Subscription observe(NSNotificationCenter* _Nullable center,
                                   NSNotificationName _Nonnull name,
                                   std::function<void(NSNotification* _Nonnull)> handler);

}
