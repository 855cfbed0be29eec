/// Moves other programs' main windows: onto a display, over a display's free area, and, for an app
/// that is still starting, as soon as there is a window to move.
#pragma once

#include "ClientWindows/WindowPlacement.hpp"
#include "Foundation/Geometry.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Layout/ScreenSnapshot.hpp"
#include "Platform/Accessibility.hpp"
#include "Platform/RunningApplications.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <variant>

namespace vireline {

class RunLoop;
class Screens;

/// Without the Accessibility permission nothing is moved.
class WindowMover {
public:
    /// In the middle of the display, as large as it is.
    struct Center {
        bool operator==(const Center&) const = default;
    };
    using PlacementMode = std::variant<Center, FillContext>;

    /// A placement that waits for its app's window.
    struct Pending {
        std::uint32_t display = 0;
        PlacementMode mode;
        /// Failed tries so far.
        int attempts = 0;

        bool operator==(const Pending&) const = default;
    };

    /// How long one Accessibility call may take; seconds.
    static constexpr float axTimeout = 0.5F;
    /// A placement that failed this often is tried once more and then given up.
    static constexpr int maxAttempts = 25;

    WindowMover(Accessibility& accessibility, const RunningApplications& applications,
                const Screens& screens, RunLoop& runLoop)
        : accessibility_(accessibility)
        , applications_(applications)
        , screens_(screens)
        , runLoop_(runLoop) {}
    WindowMover(const WindowMover&) = delete;
    WindowMover& operator=(const WindowMover&) = delete;
    WindowMover(WindowMover&&) = delete;
    WindowMover& operator=(WindowMover&&) = delete;
    ~WindowMover() = default;

    /// Arms a placement for an app that is being opened, in place of an earlier one.
    void expect(const std::string& bundleID, std::uint32_t display, const PlacementMode& mode);

    /// Whether the app's main window lies on this display. True as well when that cannot be told,
    /// so that a click then does what it does without this.
    [[nodiscard]] bool appHasWindow(const RunningApplication& app, std::uint32_t display,
                                    std::span<const ScreenSnapshot> screens);

    /// Centres the app's main window on the display. False when that failed.
    bool summonMainWindow(const RunningApplication& app, std::uint32_t display,
                          std::span<const ScreenSnapshot> screens);

    /// Fills the display's free area with the app's main window. False when any of it failed.
    bool fillMainWindow(const RunningApplication& app, std::uint32_t display,
                        std::span<const ScreenSnapshot> screens, const FillContext& context);

    /// Armed placements by bundle identifier.
    [[nodiscard]] const std::map<std::string, Pending>& pending() const noexcept {
        return pending_;
    }

private:
    [[nodiscard]] bool timedOut(double asked) const;
    [[nodiscard]] bool isHung(std::int32_t processIdentifier) const;
    /// Null also for a program that does not answer.
    [[nodiscard]] ElementHandle mainWindow(const RunningApplication& app);
    /// Event space.
    [[nodiscard]] std::optional<Rect> frame(AccessibilityElement& window);
    [[nodiscard]] bool place(const RunningApplication& app, const Pending& placement,
                             std::span<const ScreenSnapshot> screens);
    [[nodiscard]] bool tryToPlace(const std::string& bundleID, const Pending& placement,
                                  std::span<const ScreenSnapshot> screens);
    void retryPending();
    void startRetryTimer();

    Accessibility& accessibility_;
    const RunningApplications& applications_;
    const Screens& screens_;
    RunLoop& runLoop_;
    std::map<std::string, Pending> pending_;
    /// When programs that did not answer may be asked again, by process.
    std::map<std::int32_t, double> hungUntil_;
    /// Only while placements are pending.
    Timer retryTimer_;
    Lifetime lifetime_;
};

}
