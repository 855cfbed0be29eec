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

    /// Announces that a window manager has taken over, or that the one before starts again.
    [[nodiscard]] Subscription observeWindowManager(std::function<void()> handler) {
        return windowManager_.add(std::move(handler));
    }

private:
    void handle(const xcb_generic_event_t& event);
    void watchCompositor();
    [[nodiscard]] DesktopOffer read() const;
    [[nodiscard]] bool announcesBlur() const;

    X11Connection& connection_;
    std::string compositorSelection_;
    std::uint8_t selectionEvent_ = 0;
    Observable<DesktopOffer> offer_;
    CallbackList<> windowManager_;
    Subscription events_;
};

}
