/// The program in sessions that lack something, and its start and end.
#include "DesktopTest.hpp"
#include "Support/SilentSocket.hpp"

#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace vireline::desktop {
namespace {

class Session : public DesktopTest {
protected:
    /// How a run of the program ended, and its output.
    struct Ended {
        int exitCode = -1;
        std::string output;
        std::string errors;
    };

    /// Runs the program in this environment until it exits.
    Ended runToTheEnd(const Environment& environment) {
        const auto output = desktop().home().scratch() / "second.out";
        const auto errors = desktop().home().scratch() / "second.err";
        ChildProcess process{
            {testedPrograms().vireline.string(), {}, environment, output, errors, {}}};
        const int exitCode = process.waitForExit().value_or(-1);
        return {exitCode, readFile(output), readFile(errors)};
    }

    [[nodiscard]] static auto lineCount(const std::string& text) {
        return std::ranges::count(text, '\n');
    }

    const std::vector<App> apps = someApps(2);
    Request twoTiles = tiles(2);
};

TEST_F(Session, WithoutADisplayEndsWithOneLine) {
    make({});
    Environment environment = desktop().environment();
    environment.erase("DISPLAY");
    environment.erase("WAYLAND_DISPLAY");
    const auto end = runToTheEnd(environment);
    EXPECT_EQ(end.exitCode, 1);
    EXPECT_EQ(lineCount(end.errors), 1) << end.errors;
    EXPECT_EQ(end.output, "");
}

TEST_F(Session, WithADisplayThatIsNotThereEndsWithOneLine) {
    make({});
    Environment environment = desktop().environment();
    environment[desktop().isWayland() ? "WAYLAND_DISPLAY" : "DISPLAY"] = ":64321";
    const auto end = runToTheEnd(environment);
    EXPECT_EQ(end.exitCode, 1);
    EXPECT_EQ(lineCount(end.errors), 1) << end.errors;
}

TEST_F(Session, StartsOnceOnADisplay) {
    runWithTwoDisplays(apps);
    ASSERT_TRUE(docksSettle(twoTiles));
    const auto end = runToTheEnd(desktop().environment());
    EXPECT_EQ(end.exitCode, 0);
    EXPECT_EQ(lineCount(end.output + end.errors), 1) << end.output << end.errors;
    EXPECT_EQ(desktop().log().count("Vireline started"), 1);
    EXPECT_TRUE(desktop().vireline().isRunning());
    EXPECT_TRUE(docksSettle(twoTiles));
}

TEST_F(Session, StartsAgainAfterItsEnd) {
    runWithTwoDisplays(apps);
    desktop().stopVireline();
    desktop().runVireline();
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_EQ(desktop().log().count("Vireline started"), 2);
}

TEST_F(Session, StartsAgainAfterACrash) {
    runWithTwoDisplays(apps);
    desktop().vireline().signal(SIGKILL);
    ASSERT_TRUE(desktop().vireline().waitForExit());
    desktop().runVireline();
    EXPECT_TRUE(docksSettle(twoTiles));
}

TEST_F(Session, LogsItsStartFirst) {
    runWithTwoDisplays(apps);
    const auto messages = desktop().log().messages();
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.front(),
              "Vireline started pid=" + std::to_string(desktop().vireline().pid()));
}

TEST_F(Session, LogsTheSameToItsFileAndItsOutput) {
    runWithTwoDisplays(apps);
    ASSERT_TRUE(docksSettle(twoTiles));
    const auto output = desktop().home().scratch() / "vireline.out";
    EXPECT_TRUE(eventually([&] { return readFile(output) == readFile(desktop().home().log()); }));
}

TEST_F(Session, EndsWhenTheXServerDoes) {
    runWithTwoDisplays(apps);
    auto& process = desktop().vireline();
    desktop().stopServer();
    EXPECT_TRUE(process.waitForExit().has_value());
}

TEST_F(Session, EndsWithOneLineWhenTheWaylandCompositorDies) {
    runWithTwoDisplays(apps);
    if (!desktop().isWayland())
        GTEST_SKIP() << "needs a Wayland compositor";
    ASSERT_TRUE(docksSettle(twoTiles));
    auto& process = desktop().vireline();
    desktop().killWaylandCompositor();
    EXPECT_EQ(process.waitForExit(), 1);
    EXPECT_EQ(desktop().log().messages().back(),
              "the Wayland compositor has ended the connection, quitting");
    EXPECT_EQ(desktop().log().count("the Wayland compositor"), 1);
}

TEST_F(Session, ListsTheWindowsOfItsOwnCompositorIfSwaysSocketIsAnothers) {
    if (testedManager() != VirtualDesktop::Manager::sway)
        GTEST_SKIP() << "needs sway";
    auto& desktop = make({.monitors = twoMonitors()});
    VirtualDesktop other{testedPrograms(), {.monitors = twoMonitors(), .manager = testedManager()}};
    desktop.environment()["SWAYSOCK"] = other.environment().at("SWAYSOCK");
    desktop.home().install(apps[0]);
    desktop.home().pin(std::vector{apps[0]});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(1)));
    desktop.launch(apps[0]);
    EXPECT_TRUE(dotShows(layout("right", tiles(1)).dot(0), true));
}

TEST_F(Session, PlacesItsDocksWithoutAWindowManager) {
    runWithTwoDisplays(apps, {.windowManager = false});
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(turns(layout("right", twoTiles).icon(0), apps[0].colour));
}

TEST_F(Session, LaunchesWithoutAWindowManager) {
    runWithTwoDisplays(apps, {.windowManager = false});
    ASSERT_TRUE(docksSettle(twoTiles));
    desktop().pointer().click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(logs("click launch " + apps[0].id));
    const auto isAlpha = [&](xcb_window_t window) {
        return desktop().client().text(window, "WM_NAME") == apps[0].name;
    };
    EXPECT_TRUE(
        eventually([&] { return std::ranges::any_of(desktop().client().allWindows(), isAlpha); }));
}

TEST_F(Session, TakesUpAWindowManagerThatComesLater) {
    runWithTwoDisplays(apps, {.windowManager = false});
    ASSERT_TRUE(docksSettle(twoTiles));
    desktop().startWindowManager();
    EXPECT_TRUE(docksSettle(twoTiles));
    desktop().launch(apps[0]);
    EXPECT_TRUE(dotShows(layout("right", twoTiles).dot(0), true));
    EXPECT_TRUE(eventually([&] {
        return desktop().docks().isAbove(
            desktop().docks().on(desktop().displayIDOf("right")).window,
            desktop().windowsOf(apps[0]).at(0));
    }));
}

TEST_F(Session, SurvivesTheWindowManagersRestart) {
    runWithTwoDisplays(apps);
    desktop().launch(apps[1]);
    ASSERT_TRUE(dotShows(layout("right", twoTiles).dot(1), true));
    desktop().stopWindowManager();
    desktop().startWindowManager();
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(dotShows(layout("right", twoTiles).dot(1), true));
    desktop().pointer().click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(logs("click launch " + apps[0].id));
    EXPECT_TRUE(dotShows(layout("right", twoTiles).dot(0), true));
}

TEST_F(Session, RunsWithoutASessionBus) {
    // The desktop has no session bus; an app still launches.
    runWithTwoDisplays(apps);
    ASSERT_TRUE(docksSettle(twoTiles));
    desktop().pointer().click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
}

TEST_F(Session, RunsWithASessionBus) {
    runWithTwoDisplays(apps, {.sessionBus = true});
    ASSERT_TRUE(docksSettle(twoTiles));
    desktop().pointer().click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
}

TEST_F(Session, DoesWithoutASessionBusThatNeverAnswers) {
    runWithTwoDisplays(apps);
    ASSERT_TRUE(docksSettle(twoTiles));
    desktop().stopVireline();
    const auto socket = desktop().home().scratch() / "silent-bus";
    const test::SilentSocket bus{socket};
    desktop().environment()["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + socket.string();

    desktop().runVireline();

    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(logs("session bus does not answer, going on without it"));
    // Apps get the address of the real bus.
    desktop().pointer().click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
    const auto app = desktop().client().items(desktop().windowsOf(apps[0]).at(0), "_NET_WM_PID");
    ASSERT_EQ(app.size(), 1U);
    EXPECT_TRUE(readFile("/proc/" + std::to_string(app[0]) + "/environ")
                    .contains("DBUS_SESSION_BUS_ADDRESS=unix:path=" + socket.string()));
}

TEST_F(Session, WithoutRandRShowsNoDockAndStaysUp) {
    auto& desktop = make({.randr = false});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    desktop.runVireline();
    EXPECT_TRUE(logs("mirror: 2 pinned apps"));
    EXPECT_TRUE(desktop.docks().shown().empty());
    EXPECT_TRUE(desktop.vireline().isRunning());
}

TEST_F(Session, RunsOnTwoXDisplaysAtOnce) {
    runWithTwoDisplays(apps);
    ASSERT_TRUE(docksSettle(twoTiles));
    VirtualDesktop other{testedPrograms(), {.monitors = twoMonitors()}};
    other.runVireline();
    EXPECT_TRUE(eventually([&] { return other.docks().shown().size() == 1; }));
    EXPECT_TRUE(docksSettle(twoTiles));
}

}
}
