/// The daemon that offers the desktop's settings through XSETTINGS.
#pragma once

#include "Desktop/SettingsDaemon.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <xcb/xcb.h>

#include <functional>

namespace vireline::x11 {

class X11Connection;

class XSettingsDaemon final : public xdg::SettingsDaemon, private NonCopyable {
public:
    explicit XSettingsDaemon(X11Connection& connection);

    /// Two or three round trips.
    [[nodiscard]] xdg::DesktopSettings read() const override;
    [[nodiscard]] Subscription observe(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }

private:
    void handle(const xcb_generic_event_t& event);
    void watch();

    X11Connection& connection_;
    /// The daemon's window; XCB_NONE without a daemon.
    xcb_window_t window_ = XCB_NONE;
    CallbackList<> changes_;
    Subscription events_;
};

}
