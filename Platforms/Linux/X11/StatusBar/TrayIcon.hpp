/// An icon embedded in an X screen's system tray through XEmbed. Painted directly into its X
/// window, in whole pixels, over the background that the tray shows.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "StatusBar/SystemTray.hpp"

#include <xcb/xcb.h>

#include <QColor>
#include <QImage>
#include <optional>
#include <string>

namespace vireline::x11 {

class X11Connection;

class TrayIcon final : public xdg::SystemTray::Icon, private NonCopyable {
public:
    /// Asks the tray, identified by its manager window, to embed it.
    TrayIcon(X11Connection& connection, xcb_window_t manager, const std::string& name,
             xdg::SystemTray::IconCallbacks callbacks);
    ~TrayIcon() override;

private:
    void create(const std::string& name);
    void dock();
    void handle(const xcb_generic_event_t& event);
    void buttonPressed(const xcb_button_press_event_t& press);
    void buttonReleased(const xcb_button_release_event_t& release);
    void paint();
    [[nodiscard]] QImage ground() const;
    [[nodiscard]] QColor colourOn(const QImage& ground) const;
    void show(const QImage& picture) const;

    X11Connection& connection_;
    xcb_window_t manager_;
    xdg::SystemTray::IconCallbacks callbacks_;
    xcb_window_t window_ = XCB_NONE;
    xcb_colormap_t colormap_ = XCB_NONE;
    /// Whether the window has an alpha channel, rather than the screen's depth.
    bool isTranslucent_ = false;
    std::uint8_t depth_ = 0;
    int width_ = 0;
    int height_ = 0;
    /// The only button held since it was pressed on the icon; nullopt if there is no click in
    /// progress.
    std::optional<xcb_button_t> pressed_;
    Subscription events_;
};

}
