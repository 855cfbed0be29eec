/// The windows that the dock hid, until it restores them. Window managers carry out requests in
/// order, but report the result later; pending requests are remembered here, so that quick clicks
/// neither lose a window nor treat an app that is being hidden as the frontmost one.
#pragma once

#include "Applications/ClientWindows/AppGroups.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireline::xdg {

/// Times are seconds on the run loop's clock.
class HiddenWindows {
public:
    /// A request that was not carried out within this time is given up.
    static constexpr double settlingSeconds = 5;

    /// A window to restore.
    struct Restored {
        WindowID window = WindowID::none;
        /// The window manager has reported it iconified, and nothing else was requested since.
        /// Otherwise the request to iconify it may still be pending.
        bool isKnownIconified = false;

        bool operator==(const Restored&) const = default;
    };

    /// Records that the app's windows on this desktop are being iconified, and returns them:
    /// ordinary windows that are visible or about to be restored. Without a desktop, those of all
    /// desktops.
    [[nodiscard]] std::vector<WindowID> hide(const AppGroup& app,
                                             std::optional<std::uint32_t> desktop, double now);

    /// The app's hidden windows that nothing else has restored, least recently active first.
    /// Afterwards none of the app's windows counts as hidden.
    [[nodiscard]] std::vector<Restored> bringBack(const AppGroup& app, double now);

    /// Updates the records from what the window manager reports.
    void update(std::span<const AppGroup> apps, WindowID activeWindow);

    /// Whether the window is being iconified but not reported as such yet.
    [[nodiscard]] bool isLeaving(WindowID window, double now) const;

private:
    struct Hidden {
        WindowID window = WindowID::none;
        double since = 0;
        /// Seen visible since it was hidden, or visible when it was: only then does an iconified
        /// state mean that the window manager has processed this request.
        bool wasSeenShown = false;
        bool isReported = false;
        /// Another window, which is not being hidden, has become active since.
        bool isOvertaken = false;
    };
    struct Returning {
        WindowID window = WindowID::none;
        double since = 0;
    };

    [[nodiscard]] bool isReturning(WindowID window, double now) const;

    std::vector<Hidden> hidden_;
    std::vector<Returning> returning_;
};

}
