/// Shared by the end-to-end tests: a virtual desktop per test, common monitors and apps, and
/// assertions that wait.
#pragma once

#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vireline {

/// Prints an edge in test names.
inline void PrintTo(DockPosition position, std::ostream* out) {
    *out << rawValue(position);
}

}

namespace vireline::desktop {

class DesktopTest : public testing::Test {
protected:
    using Options = VirtualDesktop::Options;
    using Request = PanelPlanner::Request;

    void TearDown() override;

    /// Creates the desktop of this test, with the tested window manager unless the options name
    /// one.
    VirtualDesktop& make(Options options);
    [[nodiscard]] VirtualDesktop& desktop() { return *desktop_; }

    /// Creates a desktop with two displays side by side and the apps pinned, and runs the program;
    /// its only dock is on the display "right".
    VirtualDesktop& runWithTwoDisplays(const std::vector<App>& pinned, Options options = {});

    /// An app that opens folders and the Trash, and records each in the file `opened()`.
    [[nodiscard]] App fileManager();
    [[nodiscard]] std::filesystem::path opened();

    /// Waits until the docks are exactly where they are planned with these tiles and settings.
    [[nodiscard]] testing::AssertionResult docksSettle(const Request& request);

    /// The planned dock on a display.
    [[nodiscard]] PlannedDock plannedDock(const std::string& monitor, const Request& request);

    /// The positions of the tiles in the dock on a display.
    [[nodiscard]] DockLayout layout(const std::string& monitor, const Request& request);

    /// Waits until the pixel has this colour.
    [[nodiscard]] testing::AssertionResult turns(PixelPoint place, Colour colour);
    /// Waits until the pixel has another colour.
    [[nodiscard]] testing::AssertionResult turnsFrom(PixelPoint place, Colour colour);

    /// Waits until the log contains messages that begin with `prefix`.
    [[nodiscard]] testing::AssertionResult logs(std::string_view prefix, int times = 1);

    /// Waits until the running dot under the icon is shown, or is gone.
    [[nodiscard]] testing::AssertionResult dotShows(PixelPoint dot, bool shows);

    /// Opens the menu of the tile at `icon` and returns its frame; empty if none opens.
    [[nodiscard]] PixelRect openMenu(PixelPoint icon);
    /// A place on the strip of a dock with so many pinned apps where its own menu opens.
    [[nodiscard]] static PixelPoint besideTiles(const DockLayout& dock, int pinned);
    /// Clicks one of the menu's `count` entries.
    void choose(const PixelRect& menu, int index, int count);

private:
    std::unique_ptr<VirtualDesktop> desktop_;
};

/// The programs that the tests run; VIRELINE_TESTED_PROGRAM overrides the tested one.
[[nodiscard]] Programs testedPrograms();

/// The window manager named in VIRELINE_TESTED_MANAGER; nullopt if it is unset or "none".
[[nodiscard]] std::optional<VirtualDesktop::Manager> testedManager();

/// A plan's request for these tiles, with default settings.
[[nodiscard]] PanelPlanner::Request tiles(int pinned, int running = 0);

/// Two full-HD monitors: "left", the primary, with "right" next to it.
[[nodiscard]] std::vector<Monitor> twoMonitors();

/// Three of different sizes: the primary, one above and to its left, and one to its right.
[[nodiscard]] std::vector<Monitor> threeMonitors();

/// Apps named Alpha, Beta and so on, in different colours.
[[nodiscard]] std::vector<App> someApps(int count);

}
