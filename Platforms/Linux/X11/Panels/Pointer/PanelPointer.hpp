/// The pointer over one dock's window: combines Qt's events, X events and samples into what the
/// dock is told.
#pragma once

#include "Panels/Pointer/PointerSampler.hpp"
#include "Platform/PanelWindow.hpp"
#include "Views/Input/PointerTracker.hpp"

#include <xcb/xcb.h>

#include <QPoint>
#include <QTimer>
#include <memory>

namespace vireline::x11 {

struct PanelContext;

class PanelPointer {
public:
    /// The window that the pointer is over. Positions are in its pixels, except those in the view.
    class Window {
    public:
        virtual ~Window() = default;
        [[nodiscard]] virtual bool takesPointer(QPointF pixel) const = 0;
        [[nodiscard]] virtual Point viewPosition(QPointF pixel) const = 0;
        /// Causes `sample` to be called in the next frame.
        virtual void requestTick() = 0;
        /// Whether what the dock shows moves with every movement of the pointer along it.
        [[nodiscard]] virtual bool followsPointer() const = 0;
        /// Whether the dock has requested a frame since the current one began.
        [[nodiscard]] virtual bool isFrameRequested() const = 0;
    };

    /// All of them must outlive this object.
    PanelPointer(const PanelContext& context, PanelWindowListener& listener, Window& window);

    void setViewArea(const Rect& area) { tracker_.setViewArea(area); }
    /// Switches to a newly created X window, or to XCB_NONE.
    void setWindow(xcb_window_t window);

    void entered(QPointF pixel);
    void left();
    void moved(QPointF pixel);
    void pressed(Qt::MouseButton button, QPointF pixel);
    void released(Qt::MouseButton button, QPointF pixel);
    void cancelled() { tracker_.cancelled(); }
    /// Queries the server during a press or a foreign pointer grab, whose end may not be reported
    /// by an event.
    void look();
    /// The window was hidden.
    void hidden();

    /// Until it closes, the menu owns the pointer.
    void menuOpened() { tracker_.menuOpened(); }
    void menuClosed();

    /// Must be called once per frame.
    void sample();
    /// Must be called after changes that may affect whether sampling is needed.
    void follow();

private:
    [[nodiscard]] PointerTracker::PointerState pointerState() const;
    void hasLeft();

    const PanelContext& context_;
    Window& owner_;
    xcb_window_t window_ = XCB_NONE;
    PointerTracker tracker_;
    std::unique_ptr<PointerSampler> sampler_;
    /// Runs after a movement, unless what the dock shows moves along with the pointer.
    QTimer pause_;
    /// Polls while another client has grabbed the pointer.
    QTimer doubt_;
};

}
