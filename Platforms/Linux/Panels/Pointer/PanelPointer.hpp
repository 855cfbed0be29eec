/// The pointer over one dock's window: puts together what Qt, the X server and samples tell of it
/// into what the dock hears.
#pragma once

#include "Panels/Pointer/PointerSampler.hpp"
#include "Platform/PanelWindow.hpp"
#include "Views/PointerTracker.hpp"

#include <xcb/xcb.h>

#include <QPoint>
#include <QRect>
#include <QTimer>
#include <memory>
#include <vector>

namespace vireline::x11 {

struct PanelContext;

class PanelPointer {
public:
    /// The window that the pointer is over. Places are in its pixels, but for the view's.
    class Window {
    public:
        virtual ~Window() = default;
        [[nodiscard]] virtual bool takesPointer(QPointF pixel) const = 0;
        [[nodiscard]] virtual Point viewPosition(QPointF pixel) const = 0;
        /// As `Scene::quietRegions`.
        [[nodiscard]] virtual const std::vector<QRect>& quietAreas() const = 0;
        /// Has `sample` called in the next frame.
        virtual void requestTick() = 0;
    };

    /// All of them outlive it.
    PanelPointer(const PanelContext& context, PanelWindowListener& listener, Window& window);

    void setViewArea(const Rect& area) { tracker_.setViewArea(area); }
    /// The X window from now on, which has just been created, or XCB_NONE.
    void setWindow(xcb_window_t window);

    void entered(QPointF pixel);
    void left();
    void moved(QPointF pixel);
    void pressed(Qt::MouseButton button, QPointF pixel);
    void released(Qt::MouseButton button, QPointF pixel);
    void cancelled() { tracker_.cancelled(); }
    /// Asks the server about a press, or a pointer that somebody else holds, that nothing may tell
    /// the end of.
    void look();
    /// The window is not shown any more.
    void hidden();

    /// Until it closes, the pointer belongs to the menu.
    void menuOpened() { tracker_.menuOpened(); }
    void menuClosed();

    /// An event of the window, before Qt sees it; false when it is for Qt.
    bool handle(const xcb_generic_event_t& event);

    /// To be called once a frame.
    void sample();
    /// To be called when something may have changed that decides whether samples are needed.
    void follow();

private:
    [[nodiscard]] PointerTracker::PointerState pointerState() const;
    void hasLeft();
    void areaEntered(QPoint pixel);
    void crossingIsOver();

    const PanelContext& context_;
    Window& owner_;
    xcb_window_t window_ = XCB_NONE;
    PointerTracker tracker_;
    std::unique_ptr<PointerSampler> sampler_;
    /// Looks at a pointer that somebody else holds.
    QTimer doubt_;
    /// Where the pointer last came into another quiet area, and when note is taken of it.
    QPoint entered_;
    QTimer crossing_;
    /// The pointer went from a quiet area to another window, or was taken hold of there.
    bool leaveIsDue_ = false;
};

}
