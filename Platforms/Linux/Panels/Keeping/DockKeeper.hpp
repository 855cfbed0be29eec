/// Keeps one X window of a dock in its place and above others, and finds out whether the window
/// manager does so too.
#pragma once

#include "Panels/Keeping/DockKeeping.hpp"
#include "Panels/Keeping/StackKeeper.hpp"
#include "Panels/WindowPlace.hpp"

#include <xcb/xcb.h>

#include <QTimer>
#include <cstdint>
#include <functional>
#include <optional>

namespace vireline::x11 {

class DesktopWatch;
struct PanelContext;

class DockKeeper {
public:
    // All of them have to be set.

    /// The window, or what is known of its place, has changed.
    std::function<void()> onPlaceChanged;
    /// A window manager may have taken the window on.
    std::function<void()> onManaged;
    /// Another keeper has to take over, with another X window.
    std::function<void(Keeper)> onKeeperChange;
    /// The window has to be hidden and shown again.
    std::function<void()> onLost;

    /// For a window that has just been created, the dock of that display. With the program as its
    /// keeper the window manager has no say in the window.
    DockKeeper(const PanelContext& context, xcb_window_t window, std::uint32_t displayID,
               Keeper keeper);
    DockKeeper(const DockKeeper&) = delete;
    DockKeeper& operator=(const DockKeeper&) = delete;
    DockKeeper(DockKeeper&&) = delete;
    DockKeeper& operator=(DockKeeper&&) = delete;
    ~DockKeeper() = default;

    [[nodiscard]] WindowPlace& place() noexcept { return place_; }
    [[nodiscard]] const WindowPlace& place() const noexcept { return place_; }
    [[nodiscard]] Keeper keeper() const noexcept { return keeper_; }

    /// The window was asked to be shown, or to be hidden.
    void shown();
    void hidden();

    /// A window manager came, or went.
    void windowManagerChanged();

    /// Takes any event.
    void handle(const xcb_generic_event_t& event);

private:
    [[nodiscard]] bool tellsOfManager(const xcb_generic_event_t& event) const;
    void look();
    void readFacts();
    void proceed();
    void displaced();
    void keepStacking(bool keep);

    const PanelContext& context_;
    xcb_window_t window_;
    std::uint32_t displayID_;
    Keeper keeper_;
    WindowPlace place_;
    KeepingFacts facts_;
    std::optional<StackKeeper> stacking_;
    /// Until the next look at the window.
    QTimer timer_;
};

}
