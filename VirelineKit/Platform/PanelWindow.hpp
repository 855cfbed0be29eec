/// The window of one dock: borderless, above others, on every desktop, never focused. It paints a
/// scene and reports what the pointer does; it decides nothing.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Presentation/AccessibleTile.hpp"
#include "Presentation/Menu.hpp"
#include "Presentation/PointerEvent.hpp"
#include "Presentation/Scene.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

/// How far a window reaches beyond its frame, on each side as seen on the display. Points, none
/// negative.
struct Overhang {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    /// A frame in global coordinates, and the overhang around it.
    [[nodiscard]] constexpr Rect around(const Rect& frame) const noexcept {
        return {frame.x - left, frame.y - bottom, frame.width + left + right,
                frame.height + top + bottom};
    }

    /// A view that fills the frame, and the overhang around it, in the view's coordinates.
    [[nodiscard]] constexpr Rect around(Size view) const noexcept {
        return {-left, -top, view.width + left + right, view.height + top + bottom};
    }

    bool operator==(const Overhang&) const = default;
};

/// Who hears of the window's events. Outlives the window.
class PanelWindowListener {
public:
    virtual ~PanelWindowListener() = default;

    /// The pointer came over the window, or left it for good: a menu or a button held down does not
    /// make it leave.
    virtual void mouseEntered() = 0;
    virtual void mouseExited() = 0;

    /// The frame that was asked for is due: what changed until now can be presented.
    virtual void frameDue() = 0;

    /// A pointer event over the hosted view or what it draws in the window's overhang, in the
    /// view's coordinates. Between a press and its release it may be anywhere.
    virtual void pointerEvent(const PointerEvent& event) = 0;

    /// Something is dragged over the hosted view from another program. The text of its URLs, files
    /// and others, comes once, in the order given.
    virtual void dragEntered(const std::vector<std::string>& urls) = 0;
    /// Tells whether it could be dropped at this point of the view.
    virtual bool dragMoved(Point at) = 0;
    virtual void dragExited() = 0;
    /// It was dropped, which also ends the drag. Tells whether the drop was taken.
    virtual bool dropped(Point at) = 0;

    /// The tiles as assistive technology presents them, as they are now; asked for only while there
    /// is any.
    [[nodiscard]] virtual std::vector<AccessibleTile> accessibleTiles() { return {}; }
    /// What assistive technology did to a tile; one that is gone takes no notice.
    virtual void pressTile(std::uint32_t /*id*/) {}
    virtual void showTileMenu(std::uint32_t /*id*/) {}
};

class PanelWindow {
public:
    virtual ~PanelWindow() = default;

    /// Room for what the hosted view draws beyond the window's frame. A window whose frame is set
    /// from now on is larger than that on the display. The rest is transparent and, but for the
    /// scene's input region, no part of the window for the pointer: clicks reach what is below.
    /// No frame or place that is set here counts the overhang in.
    virtual void setOverhang(const Overhang& overhang) = 0;

    /// Global coordinates.
    virtual void setFrame(const Rect& frame, bool animate) = 0;

    /// Where the hosted view lies in the window: points, origin at the window's bottom-left corner,
    /// y upwards. The view may be larger than the window, which then clips it.
    virtual void setHostedFrame(const Rect& frame) = 0;

    /// What the hosted view shows from now on. Node values are taken as they are; nothing is
    /// animated here.
    virtual void present(const Scene& scene) = 0;

    /// Has the listener told once when the display is ready for the next frame: at once after a
    /// while without any, else in step with the display's refresh. Asking again before that changes
    /// nothing.
    virtual void requestFrame() = 0;

    /// While on, the Escape key and the loss of the pointer end a drag with a `cancelled` event.
    virtual void watchForCancel(bool watches) = 0;

    /// Looks whether the button of the press that was reported last is still down. Reports the end
    /// of a press, and of the pointer's stay, whose release went elsewhere; called twice, as a
    /// release may be on its way at first.
    virtual void checkPress() = 0;

    /// Shows the window above others without activating the program.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;

    /// Pops `menu` up at its place, moved as far as it takes to lie inside the display. Once it has
    /// closed, calls `onClose` and then the action of the command that was chosen, if one was.
    virtual void popUpMenu(const Menu& menu, const MenuPlace& place,
                           std::function<void()> onClose) = 0;
};

class PanelWindows {
public:
    virtual ~PanelWindows() = default;

    /// A window that is not shown yet. `frame` is in global coordinates.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow>
    makePanel(std::uint32_t displayID, const Rect& frame, PanelWindowListener& listener) = 0;
};

}
