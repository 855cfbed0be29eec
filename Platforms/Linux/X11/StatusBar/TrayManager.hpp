/// The current system tray of an X screen: the window that icons dock with.
#pragma once

#include "Connection/XcbWindows.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Observable.hpp"
#include "StatusBar/SystemTray.hpp"

#include <xcb/xcb.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace vireline::x11 {

class X11Connection;

class TrayManager final : public xdg::SystemTray, private NonCopyable {
public:
    explicit TrayManager(X11Connection& connection);

    [[nodiscard]] xdg::WindowID current() const override { return windowID(window_.get()); }
    [[nodiscard]] Subscription observe(std::function<void()> listener) override {
        return window_.observe(std::move(listener));
    }
    [[nodiscard]] std::unique_ptr<Icon> makeIcon(const std::string& name,
                                                 IconCallbacks callbacks) override;

private:
    void handle(const xcb_generic_event_t& event);
    void look();

    X11Connection& connection_;
    xcb_atom_t selection_;
    /// XCB_NONE while there is no tray.
    Observable<xcb_window_t> window_{XCB_NONE};
    Subscription events_;
};

}
