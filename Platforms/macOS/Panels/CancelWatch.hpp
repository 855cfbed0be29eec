/// While it lives, sees when a drag of the program's own is taken away: by the Escape key, which
/// goes to whatever program has the focus, or by a release of the button that nobody tells of.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline::macos {

/// Calls `onCancel` once, at most. Looks at the keyboard and the pointer themselves, which needs no
/// permission, as often as a display shows a frame; for the length of a drag.
[[nodiscard]] Subscription watchForCancel(std::function<void()> onCancel);

}
