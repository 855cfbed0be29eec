/// The window of one dock: borderless, above others, on every desktop, never focused. It paints a
/// scene and reports what the pointer does; it decides nothing.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Views/Menu.hpp"
#include "Views/PointerEvent.hpp"
#include "Views/Scene.hpp"

#include <cstdint>
#include <functional>
#include <memory>

namespace vireline {

/// Who hears of the window's events. Outlives the window.
class PanelWindowListener {
public:
    virtual ~PanelWindowListener() = default;

    /// The pointer came over the window, or left it for good: a menu or a button held down does not
    /// make it leave.
    virtual void mouseEntered() = 0;
    virtual void mouseExited() = 0;

    /// A pointer event over the hosted view, in the view's coordinates. Between a press and its
    /// release the positions may lie outside the view.
    virtual void pointerEvent(const PointerEvent& event) = 0;
};

class PanelWindow {
public:
    virtual ~PanelWindow() = default;

    /// Global coordinates.
    virtual void setFrame(const Rect& frame, bool animate) = 0;

    /// Where the hosted view lies in the window: points, origin at the window's bottom-left corner,
    /// y upwards. The view may be larger than the window, which then clips it.
    virtual void setHostedFrame(const Rect& frame) = 0;

    /// What the hosted view shows from now on.
    virtual void present(const Scene& scene) = 0;

    /// Shows the window above others without activating the program.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;

    /// Pops `menu` up with its corner at `at`, in the view's coordinates, inside the display.
    /// `onChoice` receives the index of the chosen entry of `menu.entries`, and is not called when
    /// the user chooses nothing.
    virtual void popUpMenu(const Menu& menu, Point at,
                           std::function<void(std::size_t)> onChoice) = 0;
};

class PanelWindows {
public:
    virtual ~PanelWindows() = default;

    /// A window that is not shown yet. `frame` is in global coordinates.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow>
    makePanel(std::uint32_t displayID, const Rect& frame, PanelWindowListener& listener) = 0;
};

}
