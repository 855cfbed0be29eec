/// Tracks the capabilities of the current window manager and compositor, and their replacement.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Observable.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <string>

namespace vireline::x11 {

class X11Connection;

struct DesktopOffer {
    /// Translucent pixels are composited.
    bool isComposited = false;
    /// The compositor blurs the background of windows on request.
    bool blursBehind = false;

    bool operator==(const DesktopOffer&) const = default;
};

class DesktopWatch : private NonCopyable {
public:
    explicit DesktopWatch(X11Connection& connection);

    [[nodiscard]] const DesktopOffer& offer() const noexcept { return offer_.get(); }
    [[nodiscard]] Subscription observeOffer(std::function<void()> handler) {
        return offer_.observe(std::move(handler));
    }

    /// Notifies when a window manager takes over, restarts or exits.
    [[nodiscard]] Subscription observeWindowManager(std::function<void()> handler) {
        return windowManager_.add(std::move(handler));
    }

    /// Whether the current window manager has failed to keep a dock in place, in which case new
    /// docks are not left to it either.
    [[nodiscard]] bool misplacesDocks() const noexcept { return misplacesDocks_; }
    void noteMisplacedDock() noexcept { misplacesDocks_ = true; }

private:
    void handle(const xcb_generic_event_t& event);
    void watchCompositor();
    void watchWindowManager();
    [[nodiscard]] DesktopOffer read() const;
    [[nodiscard]] bool announcesBlur() const;

    X11Connection& connection_;
    std::string compositorSelection_;
    std::uint8_t selectionEvent_ = 0;
    Observable<DesktopOffer> offer_;
    CallbackList<> windowManager_;
    /// The window manager's check window; its destruction reveals that the window manager has
    /// exited.
    xcb_window_t managerMark_ = XCB_NONE;
    bool misplacesDocks_ = false;
    Subscription events_;
};

}
