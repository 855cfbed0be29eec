/// Moves and sizes other programs' windows, for as long as the user lets this program.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vireline {

/// An application or a window as the platform knows it. What it stands for may be gone.
class AccessibilityElement {
public:
    AccessibilityElement() = default;
    AccessibilityElement(const AccessibilityElement&) = delete;
    AccessibilityElement& operator=(const AccessibilityElement&) = delete;
    AccessibilityElement(AccessibilityElement&&) = delete;
    AccessibilityElement& operator=(AccessibilityElement&&) = delete;
    virtual ~AccessibilityElement() = default;
};

/// Null stands for a value that is no element.
using ElementHandle = std::shared_ptr<AccessibilityElement>;

/// Positions are those of a window's top-left outer corner in event space: points, origin at the
/// primary display's top-left corner, y downwards. Sizes are outer sizes in points. Every call
/// blocks for at most its element's time-out; an error's code is the platform's own number.
class Accessibility {
public:
    virtual ~Accessibility() = default;

    /// Whether the user has granted the permission; asked afresh each time, it can be withdrawn.
    [[nodiscard]] virtual bool isTrusted() const = 0;

    /// Whether this desktop lets any program move others' windows. Where it does not, nothing is
    /// trusted and no permission would help; asked each time, since another window manager may
    /// take over.
    [[nodiscard]] virtual bool canMoveWindows() const = 0;

    /// Announces that `canMoveWindows` may answer differently from now on. A platform where it
    /// never does never calls.
    [[nodiscard]] virtual Subscription observeManager(std::function<void()> handler) = 0;

    /// As `isTrusted`, and the system shows its request for the permission if it is missing.
    virtual bool isTrustedWithPrompt() = 0;

    /// The element of a running app, whether or not there is one. Several apps may share a process;
    /// one of 0 is unknown.
    [[nodiscard]] virtual ElementHandle application(std::int32_t processIdentifier,
                                                    const std::string& bundleID) = 0;

    /// How long a call about the element may take from now on; seconds.
    virtual void setMessagingTimeout(AccessibilityElement& element, float seconds) = 0;

    /// "AXMainWindow" of an application.
    [[nodiscard]] virtual Result<ElementHandle> mainWindow(AccessibilityElement& application) = 0;

    /// "AXWindows" of an application.
    [[nodiscard]] virtual Result<std::vector<ElementHandle>>
    windows(AccessibilityElement& application) = 0;

    /// "AXPosition" of a window.
    [[nodiscard]] virtual Result<Point> position(AccessibilityElement& window) = 0;
    virtual Result<void> setPosition(AccessibilityElement& window, Point position) = 0;

    /// "AXSize" of a window.
    [[nodiscard]] virtual Result<Size> size(AccessibilityElement& window) = 0;
    virtual Result<void> setSize(AccessibilityElement& window, Size size) = 0;
};

}
