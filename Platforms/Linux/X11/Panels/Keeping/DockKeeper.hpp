/// Keeps the X window of a dock in place and above other windows, and finds out whether the window
/// manager does that itself.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Panels/Keeping/DockKeeping.hpp"
#include "Panels/Keeping/StackKeeper.hpp"
#include "Panels/Keeping/WindowPlace.hpp"

#include <xcb/xcb.h>

#include <QTimer>
#include <cstdint>
#include <functional>
#include <optional>

namespace vireline::x11 {

class DesktopWatch;
struct PanelContext;

class DockKeeper : private NonCopyable {
public:
    // All callbacks must be set.

    /// The window's actual or expected position has changed.
    std::function<void()> onPlaceChanged;
    /// A window manager may have started to manage the window.
    std::function<void()> onManaged;
    /// Another keeper has to take over, with a new X window.
    std::function<void(Keeper)> onKeeperChange;
    /// The window has to be hidden and shown again.
    std::function<void()> onLost;

    /// For the newly created window of that display's dock. If the program is its keeper, the
    /// window bypasses the window manager (override-redirect).
    DockKeeper(const PanelContext& context, xcb_window_t window, std::uint32_t displayID,
               Keeper keeper);

    [[nodiscard]] WindowPlace& place() noexcept { return place_; }
    [[nodiscard]] const WindowPlace& place() const noexcept { return place_; }
    [[nodiscard]] Keeper keeper() const noexcept { return keeper_; }

    /// Call after the window was shown or hidden.
    void shown();
    void hidden();

    /// Call when a window manager starts or exits.
    void windowManagerChanged();

    /// Must be called for every event.
    void handle(const xcb_generic_event_t& event);

private:
    [[nodiscard]] bool mayBeManaged(const xcb_generic_event_t& event) const;
    [[nodiscard]] bool mayBeCovered(const xcb_generic_event_t& event) const;
    [[nodiscard]] bool isMistreated() const;
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
    bool isShown_ = false;
    std::optional<StackKeeper> stacking_;
    /// Runs until the next check of the window.
    QTimer timer_;
};

}
