/// What the window manager and the compositor of the moment offer, and when another one comes.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/Observable.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <string>

namespace vireline::x11 {

class X11Connection;

struct DesktopOffer {
    /// Translucent pixels are drawn as such.
    bool isComposited = false;
    /// The compositor blurs what lies behind a window where it is asked to.
    bool blursBehind = false;

    bool operator==(const DesktopOffer&) const = default;
};

class DesktopWatch {
public:
    explicit DesktopWatch(X11Connection& connection);
    DesktopWatch(const DesktopWatch&) = delete;
    DesktopWatch& operator=(const DesktopWatch&) = delete;
    DesktopWatch(DesktopWatch&&) = delete;
    DesktopWatch& operator=(DesktopWatch&&) = delete;
    ~DesktopWatch() = default;

    [[nodiscard]] const DesktopOffer& offer() const noexcept { return offer_.get(); }
    [[nodiscard]] Subscription observeOffer(std::function<void()> handler) {
        return offer_.observe(std::move(handler));
    }

    /// Announces that a window manager has taken over, that the one before starts again, or that it
    /// has gone.
    [[nodiscard]] Subscription observeWindowManager(std::function<void()> handler) {
        return windowManager_.add(std::move(handler));
    }

    /// Whether the window manager of the moment has failed to keep a dock where it belongs. Such a
    /// manager is not given the next one.
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
    /// By which the window manager announces itself, and whose end tells of its own.
    xcb_window_t managerMark_ = XCB_NONE;
    bool misplacesDocks_ = false;
    Subscription events_;
};

}
