/// The attached displays.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace vireline {

/// One display as the platform reports it. Rectangles are in global space: points, origin at the
/// primary display's bottom-left corner, y upwards.
struct PlatformScreen {
    /// The display ID; nullopt if the platform has none that fits.
    std::optional<std::uint32_t> number;
    std::uint32_t unitNumber = 0;
    Rect frame;
    /// The frame minus what the menu bar, the desktop's own dock and other panels reserve.
    Rect visibleFrame;
    /// Pixels per point.
    double backingScaleFactor = 1;

    bool operator==(const PlatformScreen&) const = default;
};

class Screens {
public:
    virtual ~Screens() = default;

    /// The primary display first, its frame's origin at (0, 0).
    [[nodiscard]] virtual std::vector<PlatformScreen> screens() const = 0;

    /// Calls `handler` after every change of the displays or of their visible frames. Changes come
    /// in bursts.
    [[nodiscard]] virtual Subscription observeParameters(std::function<void()> handler) = 0;
};

}
