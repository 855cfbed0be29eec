/// The windows that the dock hid, until it brings them back. Window managers carry out requests in
/// order, but report what they did later; what was asked for meanwhile is remembered here, so that
/// quick clicks neither lose a window nor take an app on its way out for the frontmost one.
#pragma once

#include "Applications/ClientWindows/AppGroups.hpp"

#include <xcb/xproto.h>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireline::x11 {

/// Times are seconds on one clock, the run loop's.
class HiddenWindows {
public:
    /// A window manager that has not done by then as it was asked will not do so any more.
    static constexpr double settlingSeconds = 5;

    /// A window to be restored.
    struct Restored {
        xcb_window_t window = XCB_NONE;
        /// The window manager has reported it iconified, and nothing else was asked for since. If
        /// not, the request to iconify it may still be waiting.
        bool isSurelyIconified = false;

        bool operator==(const Restored&) const = default;
    };

    /// Notes that the app's windows on this desktop are being iconified, and returns them: ordinary
    /// ones that are shown, or will be once the window manager has restored them. Without a desktop
    /// those of all desktops.
    [[nodiscard]] std::vector<xcb_window_t> hide(const AppGroup& app,
                                                 std::optional<std::uint32_t> desktop, double now);

    /// What was hidden of the app and has not been restored by others, least recently active first.
    /// Nothing of the app counts as hidden afterwards.
    [[nodiscard]] std::vector<Restored> bringBack(const AppGroup& app, double now);

    /// Takes in what the window manager has reported.
    void update(std::span<const AppGroup> apps, xcb_window_t activeWindow);

    /// Whether the window is being iconified, although the window manager has not reported it yet.
    [[nodiscard]] bool isLeaving(xcb_window_t window, double now) const;

private:
    struct Hidden {
        xcb_window_t window = XCB_NONE;
        double since = 0;
        /// Seen shown since it was hidden, or when it was: only then does being seen iconified mean
        /// that the window manager has come to this request.
        bool wasSeenShown = false;
        bool isReported = false;
        /// Another window that stays has become active since.
        bool isOvertaken = false;
    };
    struct Returning {
        xcb_window_t window = XCB_NONE;
        double since = 0;
    };

    [[nodiscard]] bool isReturning(xcb_window_t window, double now) const;

    std::vector<Hidden> hidden_;
    std::vector<Returning> returning_;
};

}
