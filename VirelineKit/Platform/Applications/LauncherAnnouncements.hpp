/// What running apps announce about themselves for docks to show: counts, progress, urgency.
#pragma once

#include "Foundation/ScopedHandle.hpp"
#include "Presentation/TileStatus.hpp"

#include <functional>
#include <map>
#include <string>

namespace vireline {

class LauncherAnnouncements {
public:
    virtual ~LauncherAnnouncements() = default;

    /// The announcements in force, by bundle identifier: only those of installed apps, with values
    /// that are within their limits, until the announcing program goes.
    [[nodiscard]] virtual std::map<std::string, TileStatus> current() = 0;

    /// Calls `handler` when the result of `current` has changed, and then not again until `current`
    /// has been called: programs may announce any number of changes per second.
    [[nodiscard]] virtual Subscription observe(std::function<void()> handler) = 0;
};

}
