/// Moves and resizes other programs' windows, as far as the user permits it.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vireline {

/// The platform's reference to an application or a window, which may be gone by now.
class AccessibilityElement : private NonCopyable {
public:
    virtual ~AccessibilityElement() = default;
};

/// Null if the attribute's value is not an element.
using ElementHandle = std::shared_ptr<AccessibilityElement>;

/// A window as the menu of its app's tile lists it.
struct OpenWindow {
    ElementHandle element;
    /// As the app gave it, with any characters; empty if it gave none.
    std::string title;
    /// Whether it has the keyboard focus.
    bool isActive = false;
};

/// Positions are those of a window's top-left outer corner in event space: points, origin at the
/// primary display's top-left corner, y downwards. Sizes are outer sizes in points. Every call
/// blocks for at most the element's timeout. The code of an error is the platform's own.
class Accessibility {
public:
    virtual ~Accessibility() = default;

    /// Whether the user has granted the permission. Not cached, since it can be withdrawn at any
    /// time.
    [[nodiscard]] virtual bool isTrusted() const = 0;

    /// Whether this desktop lets programs move other programs' windows at all. If not, `isTrusted`
    /// is false, and no permission would help. Not cached, since another window manager may take
    /// over.
    [[nodiscard]] virtual bool canMoveWindows() const = 0;

    /// Calls `handler` when the result of `canMoveWindows` may have changed.
    [[nodiscard]] virtual Subscription observeManager(std::function<void()> handler) = 0;

    /// Like `isTrusted`, but if the permission is missing, the system also asks the user for it.
    virtual bool isTrustedWithPrompt() = 0;

    /// The element of an app; never null, even if no such app runs. `bundleID` tells apps apart
    /// that share a process. A process identifier of 0 means unknown.
    [[nodiscard]] virtual ElementHandle application(std::int32_t processIdentifier,
                                                    const std::string& bundleID) = 0;

    /// Sets the timeout of calls about the element, in seconds.
    virtual void setMessagingTimeout(AccessibilityElement& element, float seconds) = 0;

    /// "AXMainWindow" of an application.
    [[nodiscard]] virtual Result<ElementHandle> mainWindow(AccessibilityElement& application) = 0;

    /// "AXWindows" of an application.
    [[nodiscard]] virtual Result<std::vector<ElementHandle>>
    windows(AccessibilityElement& application) = 0;

    /// The app's windows, hidden ones included, most recently active first. Fails where the system
    /// does not tell, or without the permission if it takes one. Blocks for at most the
    /// application's timeout in total.
    [[nodiscard]] virtual Result<std::vector<OpenWindow>>
    openWindows(AccessibilityElement& application) = 0;
    /// Shows the window if it is hidden, brings it to the front and gives it the focus.
    virtual Result<void> bringForward(AccessibilityElement& window) = 0;

    /// "AXPosition" of a window.
    [[nodiscard]] virtual Result<Point> position(AccessibilityElement& window) = 0;
    virtual Result<void> setPosition(AccessibilityElement& window, Point position) = 0;

    /// "AXSize" of a window.
    [[nodiscard]] virtual Result<Size> size(AccessibilityElement& window) = 0;
    virtual Result<void> setSize(AccessibilityElement& window, Size size) = 0;
};

}
