/// Notification centres as the kit's subscriptions.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#import <Foundation/Foundation.h>

#include <functional>

namespace vireline::macos {

/// The application's own centre, and the one of the workspace. Nil if the system raised.
[[nodiscard]] NSNotificationCenter* _Nullable ownCenter();
[[nodiscard]] NSNotificationCenter* _Nullable workspaceCenter();

/// Calls `handler` on the main queue for every notification of this name, from any sender, for as
/// long as the subscription lives.
[[nodiscard]] Subscription observe(NSNotificationCenter* _Nullable center,
                                   NSNotificationName _Nonnull name,
                                   std::function<void(NSNotification* _Nonnull)> handler);

}
