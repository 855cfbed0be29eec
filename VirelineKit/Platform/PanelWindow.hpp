/// The window of one dock: borderless, above others, on every desktop, never focused. It paints a
/// scene and reports pointer events; it decides nothing.
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

/// How far a window extends beyond its frame on each side, as seen on the display. In points, never
/// negative.
struct Overhang {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    /// A frame in global coordinates, extended by the overhang.
    [[nodiscard]] constexpr Rect around(const Rect& frame) const noexcept {
        return {frame.x - left, frame.y - bottom, frame.width + left + right,
                frame.height + top + bottom};
    }

    /// The bounds of a view that fills the frame, extended by the overhang, in the view's
    /// coordinates.
    [[nodiscard]] constexpr Rect around(Size view) const noexcept {
        return {-left, -top, view.width + left + right, view.height + top + bottom};
    }

    bool operator==(const Overhang&) const = default;
};

/// Receives the window's events. Must outlive the window.
class PanelWindowListener {
public:
    virtual ~PanelWindowListener() = default;

    /// The pointer entered or left the window. While a menu is open or a button is held down, it
    /// does not count as having left.
    virtual void mouseEntered() = 0;
    virtual void mouseExited() = 0;

    /// The frame requested with `requestFrame` is due.
    virtual void frameDue() = 0;

    /// A pointer event over the hosted view or over what it draws in the overhang, in the view's
    /// coordinates. Between a press and its release, the position may be anywhere.
    virtual void pointerEvent(const PointerEvent& event) = 0;

    /// A drag from another program entered the hosted view. `urls` has the texts of all its URLs,
    /// not only of files, in the drag's order.
    virtual void dragEntered(const std::vector<std::string>& urls) = 0;
    /// Returns whether the drag could be dropped at this point of the view.
    virtual bool dragMoved(Point at) = 0;
    virtual void dragExited() = 0;
    /// The drag ended with a drop. Returns whether the drop was accepted.
    virtual bool dropped(Point at) = 0;

    /// The current tiles, for assistive technology. Called only while such technology is in use.
    [[nodiscard]] virtual std::vector<AccessibleTile> accessibleTiles() { return {}; }
    /// Actions by assistive technology. The identifier of a tile that is gone is ignored.
    virtual void pressTile(std::uint32_t /*id*/) {}
    virtual void showTileMenu(std::uint32_t /*id*/) {}
};

class PanelWindow {
public:
    virtual ~PanelWindow() = default;

    /// Sets the room for what the hosted view draws beyond the window's frame. Takes effect with
    /// the next `setFrame`: on the display, the window is then larger than its frame. The overhang
    /// is transparent and, outside the scene's input region, lets clicks through. Frames and
    /// positions in this interface never include it.
    virtual void setOverhang(const Overhang& overhang) = 0;

    /// In global coordinates.
    virtual void setFrame(const Rect& frame, bool animate) = 0;

    /// The frame of the hosted view in the window: points, origin at the window's bottom-left
    /// corner, y upwards. A view that is larger than the window is clipped.
    virtual void setHostedFrame(const Rect& frame) = 0;

    /// Shows this scene. The values of the nodes are shown as they are; nothing is animated here.
    virtual void present(const Scene& scene) = 0;

    /// Calls `frameDue` once when the display is ready for the next frame: without delay if the
    /// dock was at rest, otherwise in step with the display's refresh. Requests before that are
    /// ignored.
    virtual void requestFrame() = 0;

    /// While watching, the Escape key and the loss of the pointer grab cancel a drag, with a
    /// `cancelled` event.
    virtual void watchForCancel(bool watches) = 0;

    /// Checks whether the button of the last reported press is still down. If its release went to
    /// another program, ends the press, and reports that the pointer left if it has. Acts only on
    /// the second call in a row that finds the button up, since at the first the release may still
    /// be on its way.
    virtual void checkPress() = 0;

    /// Shows the window above others without activating the program.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;

    /// Pops `menu` up at `place`, moved as far as necessary to lie inside the display. Once it has
    /// closed, calls `onClose` and then the action of the chosen command, if any.
    virtual void popUpMenu(const Menu& menu, const MenuPlace& place,
                           std::function<void()> onClose) = 0;
};

class PanelWindows {
public:
    virtual ~PanelWindows() = default;

    /// Creates a hidden window. `frame` is in global coordinates.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow>
    makePanel(std::uint32_t displayID, const Rect& frame, PanelWindowListener& listener) = 0;
};

}
