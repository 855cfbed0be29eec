/// Moves other programs' main windows to a display, or makes them fill its free area. For an app
/// that is still launching, this happens once it has a window.
#pragma once

#include "ClientWindows/WindowPlacement.hpp"
#include "Foundation/Geometry.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Layout/ScreenSnapshot.hpp"
#include "Platform/Applications/Accessibility.hpp"
#include "Platform/Applications/RunningApplications.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace vireline {

class RunLoop;
class Screens;

/// Does nothing without the Accessibility permission.
class WindowMover : private NonCopyable {
public:
    /// Centred on the display, without being resized.
    struct Center {
        bool operator==(const Center&) const = default;
    };
    using PlacementMode = std::variant<Center, FillContext>;

    /// A placement that waits for its app's window.
    struct Pending {
        std::uint32_t display = 0;
        PlacementMode mode;
        /// Failed attempts so far.
        int attempts = 0;

        bool operator==(const Pending&) const = default;
    };

    /// The timeout of an Accessibility call, in seconds.
    static constexpr float axTimeout = 0.5F;
    /// After this many failures, a placement is tried once more before it is given up.
    static constexpr int maxAttempts = 25;

    WindowMover(Accessibility& accessibility, const RunningApplications& applications,
                const Screens& screens, RunLoop& runLoop)
        : accessibility_(accessibility)
        , applications_(applications)
        , screens_(screens)
        , runLoop_(runLoop) {}

    /// Arms a placement for an app that is being opened, replacing an earlier one.
    void expect(const std::string& bundleID, std::uint32_t display, const PlacementMode& mode);

    /// Whether the app's main window is on this display. Also true if that is unknown, so that a
    /// click then does what it does without summoning.
    [[nodiscard]] bool appHasWindow(const RunningApplication& app, std::uint32_t display,
                                    std::span<const ScreenSnapshot> screens);

    /// Centres the app's main window on the display. Returns false on failure.
    bool summonMainWindow(const RunningApplication& app, std::uint32_t display,
                          std::span<const ScreenSnapshot> screens);

    /// The app's windows, most recently active first; none if the system does not tell, or while
    /// the program does not respond.
    [[nodiscard]] std::vector<OpenWindow> openWindows(const RunningApplication& app);

    /// Brings one of the app's windows forward. With `summons`, centres it on the display first,
    /// unless it is there already.
    void showWindow(const RunningApplication& app, const OpenWindow& window, std::uint32_t display,
                    std::span<const ScreenSnapshot> screens, bool summons);

    /// Fills the display's free area with the app's main window. Returns false if any step fails.
    bool fillMainWindow(const RunningApplication& app, std::uint32_t display,
                        std::span<const ScreenSnapshot> screens, const FillContext& context);

    /// Armed placements by bundle identifier.
    [[nodiscard]] const std::map<std::string, Pending>& pending() const noexcept {
        return pending_;
    }

private:
    [[nodiscard]] bool timedOut(double asked) const;
    [[nodiscard]] bool isHung(std::int32_t processIdentifier) const;
    /// Null if there is none, or if the program does not respond.
    [[nodiscard]] ElementHandle mainWindow(const RunningApplication& app);
    /// In event space.
    [[nodiscard]] std::optional<Rect> frame(AccessibilityElement& window);
    /// Returns false on failure.
    bool center(const RunningApplication& app, AccessibilityElement& window, Size size,
                const ScreenSnapshot& target, std::span<const ScreenSnapshot> screens);
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
    /// When programs that did not respond may be called again, by process identifier.
    std::map<std::int32_t, double> hungUntil_;
    /// Runs only while placements are pending.
    Timer retryTimer_;
    Lifetime lifetime_;
};

}
