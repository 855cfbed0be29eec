/// Detects when a drag of a tile is cancelled: by the Escape key, which goes to the program with
/// the focus, or by a release of the button that is not reported.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline::macos {

/// Calls `onCancel` at most once. Polls the state of the keyboard and the pointer 60 times a
/// second, which needs no permission, until the subscription is destroyed.
[[nodiscard]] Subscription watchForCancel(std::function<void()> onCancel);

}
