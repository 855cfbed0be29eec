#include "Layout/ScreenSnapshot.hpp"

#include "Platform/Desktop/Screens.hpp"

namespace vireline {

std::optional<ScreenSnapshot> ScreenSnapshot::of(const PlatformScreen& screen) {
    if (!screen.number)
        return std::nullopt;
    return ScreenSnapshot{.id = *screen.number,
                          .unitNumber = screen.unitNumber,
                          .frame = screen.frame,
                          .visibleFrame = screen.visibleFrame,
                          .backingScaleFactor = screen.backingScaleFactor};
}

std::vector<ScreenSnapshot> ScreenSnapshot::current(const Screens& screens) {
    std::vector<ScreenSnapshot> snapshots;
    for (const PlatformScreen& screen : screens.screens()) {
        if (const auto snapshot = of(screen))
            snapshots.push_back(*snapshot);
    }
    return snapshots;
}

}
