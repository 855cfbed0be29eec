/// What the end-to-end tests share: one virtual desktop a test, usual monitors and apps, and
/// assertions that wait.
#pragma once

#include "VirtualDesktop/VirtualDesktop.hpp"
#include "VirtualDesktop/Waiting.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vireline {

/// How the tests' framework names an edge.
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

    /// Makes the desktop of this test, under the tested manager unless the options say another.
    VirtualDesktop& make(Options options);
    [[nodiscard]] VirtualDesktop& desktop() { return *desktop_; }

    /// A desktop with two displays side by side, the apps pinned, and the program running with its
    /// one dock on the display "right".
    VirtualDesktop& runWithTwoDisplays(const std::vector<App>& pinned, Options options = {});

    /// An app that opens folders and the Trash, and notes each in the file `opened()`.
    [[nodiscard]] App fileManager();
    [[nodiscard]] std::filesystem::path opened();

    /// The docks come to be exactly where they are planned with this many tiles and these settings.
    [[nodiscard]] testing::AssertionResult docksSettle(const Request& request);

    /// The dock on a display, as planned.
    [[nodiscard]] PlannedDock plannedDock(const std::string& monitor, const Request& request);

    /// Where the tiles of the dock on a display are.
    [[nodiscard]] DockLayout layout(const std::string& monitor, const Request& request);

    /// The pixel comes to have this colour.
    [[nodiscard]] testing::AssertionResult turns(PixelPoint place, Colour colour);
    /// The pixel keeps away from this colour, or loses it.
    [[nodiscard]] testing::AssertionResult turnsFrom(PixelPoint place, Colour colour);

    /// A message that begins with `prefix` is in the log, or comes.
    [[nodiscard]] testing::AssertionResult logs(std::string_view prefix, int times = 1);

    /// Whether the running dot under the icon comes, or goes.
    [[nodiscard]] testing::AssertionResult dotShows(PixelPoint dot, bool shows);

    /// Opens the menu of the tile at `icon` and returns its window; XCB_NONE if none opens.
    [[nodiscard]] xcb_window_t openMenu(PixelPoint icon);
    /// Clicks an entry of a menu that has `count` of them.
    void choose(xcb_window_t menu, int index, int count);

private:
    std::unique_ptr<VirtualDesktop> desktop_;
};

/// The programs that the tests run; VIRELINE_TESTED_PROGRAM may name another program to test.
[[nodiscard]] Programs testedPrograms();

/// The window manager that VIRELINE_TESTED_MANAGER names; nothing if it is not set, or "none".
[[nodiscard]] std::optional<VirtualDesktop::Manager> testedManager();

/// A plan's request for this many tiles, with the settings at their defaults.
[[nodiscard]] PanelPlanner::Request tiles(int pinned, int running = 0);

/// Two full-HD monitors, the primary "left" and "right" beside it.
[[nodiscard]] std::vector<Monitor> twoMonitors();

/// Three of different sizes: the primary, one above-left of it and one to its right.
[[nodiscard]] std::vector<Monitor> threeMonitors();

/// Apps named Alpha, Beta, and so on, each with its own colour.
[[nodiscard]] std::vector<App> someApps(int count);

}
