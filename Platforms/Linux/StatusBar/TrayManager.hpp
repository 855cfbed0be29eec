/// The current system tray of an X screen: the window that icons dock with.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Foundation/Observable.hpp"

#include <xcb/xcb.h>

#include <functional>
#include <string>

namespace vireline::x11 {

class X11Connection;

class TrayManager : private NonCopyable {
public:
    explicit TrayManager(X11Connection& connection);

    /// XCB_NONE while there is no tray.
    [[nodiscard]] xcb_window_t window() const noexcept { return window_.get(); }
    [[nodiscard]] Subscription observe(std::function<void()> listener) {
        return window_.observe(std::move(listener));
    }

private:
    void handle(const xcb_generic_event_t& event);
    void look();
    [[nodiscard]] xcb_window_t owner() const;

    X11Connection& connection_;
    xcb_atom_t selection_;
    Observable<xcb_window_t> window_{XCB_NONE};
    Subscription events_;
};

}
