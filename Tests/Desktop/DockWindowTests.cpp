/// The dock's window: its hints for the window manager, its visible parts, and its input region.
#include "DesktopTest.hpp"
#include "VirtualDesktop/Processes/ProcessFigures.hpp"

#include <algorithm>
#include <chrono>

namespace vireline::desktop {
namespace {

class DockWindowProperties : public DesktopTest {
protected:
    /// The window of the dock on the display "right".
    xcb_window_t runWithOneDock(Options options = {}) {
        runWithTwoDisplays(apps, std::move(options));
        EXPECT_TRUE(docksSettle(twoTiles));
        return desktop().docks().on(desktop().displayIDOf("right")).window;
    }

    [[nodiscard]] bool hasAtom(xcb_window_t window, std::string_view property,
                               std::string_view value) {
        const auto atoms = desktop().client().atoms(window, property);
        return std::ranges::find(atoms, desktop().client().atom(value)) != atoms.end();
    }

    const std::vector<App> apps = someApps(2);
    Request twoTiles = tiles(2);
};

TEST_F(DockWindowProperties, NameItsDisplay) {
    const auto dock = runWithOneDock();
    EXPECT_EQ(desktop().client().text(dock, "_NET_WM_NAME"),
              "Vireline dock #" + std::to_string(desktop().displayIDOf("right")));
}

TEST_F(DockWindowProperties, CarryTheProgramsClass) {
    const auto dock = runWithOneDock();
    EXPECT_EQ(desktop().client().text(dock, "WM_CLASS"), (std::string{"vireline\0Vireline\0", 18}));
}

TEST_F(DockWindowProperties, SayThatItIsADock) {
    const auto dock = runWithOneDock();
    EXPECT_TRUE(hasAtom(dock, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"));
}

TEST_F(DockWindowProperties, PutItOnAllDesktops) {
    // The window manager sets this for sticky windows.
    constexpr std::uint32_t allDesktops = 0xffffffff;
    const auto dock = runWithOneDock();
    EXPECT_TRUE(eventually([&] {
        return desktop().client().items(dock, "_NET_WM_DESKTOP") == std::vector{allDesktops};
    }));
}

TEST_F(DockWindowProperties, KeepItOutOfLists) {
    const auto dock = runWithOneDock();
    for (const auto* state : {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"})
        EXPECT_TRUE(eventually([&] { return hasAtom(dock, "_NET_WM_STATE", state); })) << state;
}

TEST_F(DockWindowProperties, ReserveNoRoom) {
    const auto dock = runWithOneDock();
    const auto strut = desktop().client().items(dock, "_NET_WM_STRUT");
    EXPECT_TRUE(std::ranges::all_of(strut, [](auto length) { return length == 0; }));
    const auto partial = desktop().client().items(dock, "_NET_WM_STRUT_PARTIAL");
    EXPECT_TRUE(std::ranges::all_of(partial, [](auto length) { return length == 0; }));
}

TEST_F(DockWindowProperties, RefuseTheKeyboard) {
    const auto dock = runWithOneDock();
    const auto hints = desktop().client().items(dock, "WM_HINTS");
    constexpr std::uint32_t inputFlag = 1;
    ASSERT_GE(hints.size(), 2U);
    EXPECT_EQ(hints[0] & inputFlag, inputFlag);
    EXPECT_EQ(hints[1], 0U);
    // A window that takes the focus by itself would list it here.
    EXPECT_FALSE(hasAtom(dock, "WM_PROTOCOLS", "WM_TAKE_FOCUS"));
}

TEST_F(DockWindowProperties, HaveRoomForTranslucencyWithACompositor) {
    constexpr int withAlpha = 32;
    const auto dock = runWithOneDock({.compositor = true});
    EXPECT_EQ(desktop().client().depth(dock), withAlpha);
}

class DockSurface : public DockWindowProperties {
protected:
    /// Opens a window of one colour below the dock that covers the whole display "right".
    void putBehind(const App& app, const std::string& colour) {
        const auto& frame = desktop().monitor("right").frame;
        desktop().launch(app,
                         {"--at", std::to_string(frame.x) + "," + std::to_string(frame.y), "--size",
                          std::to_string(frame.width) + "x" + std::to_string(frame.height),
                          "--colour", colour, "--skip-taskbar", "--record", record().string()});
        ASSERT_TRUE(eventually([&] { return !desktop().visibleWindowsOf(app).empty(); }));
    }

    [[nodiscard]] std::filesystem::path record() { return desktop().home().scratch() / "behind"; }

    /// A point on the strip's background, in the padding at its leading end.
    [[nodiscard]] PixelPoint glass() {
        const auto strip = layout("right", twoTiles).strip();
        return {strip.x + 3, strip.y + strip.height / 2};
    }

    /// A point above the strip, where only labels are shown.
    [[nodiscard]] PixelPoint labelZone() {
        const auto frame = plannedDock("right", twoTiles).frame;
        return {frame.x + 4, frame.y + 4};
    }

    const App red{"org.example.Red", "Red", {}, {}};
    const App blue{"org.example.Blue", "Blue", {}, {}};
    const Colour redColour{0xf0, 0x10, 0x10};
    const Colour blueColour{0x10, 0x10, 0xf0};
};

TEST_F(DockSurface, StaysAboveOtherWindows) {
    const auto dock = runWithOneDock();
    putBehind(red, "f01010");
    const auto behind = desktop().windowsOf(red).at(0);
    EXPECT_TRUE(eventually([&] { return desktop().docks().isAbove(dock, behind); }));
    EXPECT_TRUE(turns(layout("right", twoTiles).icon(0), apps[0].colour));
}

TEST_F(DockSurface, LetsColoursThroughWithACompositor) {
    runWithOneDock({.compositor = true});
    putBehind(red, "f01010");
    ASSERT_TRUE(turns(labelZone(), redColour));
    ASSERT_TRUE(turnsFrom(glass(), redColour));
    const auto overRed = desktop().pixel(glass());
    putBehind(blue, "1010f0");
    ASSERT_TRUE(turns(labelZone(), blueColour));
    EXPECT_TRUE(turnsFrom(glass(), overRed));
}

TEST_F(DockSurface, IsOpaqueWithoutACompositor) {
    runWithOneDock();
    putBehind(red, "f01010");
    ASSERT_TRUE(turns(labelZone(), redColour));
    ASSERT_TRUE(turnsFrom(glass(), redColour));
    const auto overRed = desktop().pixel(glass());
    putBehind(blue, "1010f0");
    ASSERT_TRUE(turns(labelZone(), blueColour));
    EXPECT_EQ(desktop().pixel(glass()), overRed);
}

TEST_F(DockSurface, LeavesTheStripsCornersFreeWithoutACompositor) {
    runWithOneDock();
    putBehind(red, "f01010");
    const auto strip = layout("right", twoTiles).strip();
    EXPECT_TRUE(turns({strip.x, strip.y}, redColour));
    EXPECT_TRUE(turns({strip.right() - 1, strip.y}, redColour));
    EXPECT_TRUE(turns({strip.x, strip.bottom() - 1}, redColour));
    EXPECT_TRUE(turns({strip.right() - 1, strip.bottom() - 1}, redColour));
}

TEST_F(DockSurface, BecomesTranslucentWhenACompositorComes) {
    runWithOneDock();
    putBehind(red, "f01010");
    ASSERT_TRUE(turnsFrom(glass(), redColour));
    const auto opaque = desktop().pixel(glass());
    desktop().startCompositor();
    EXPECT_TRUE(turnsFrom(glass(), opaque));
    EXPECT_TRUE(turns(labelZone(), redColour));
}

TEST_F(DockSurface, BecomesOpaqueWhenTheCompositorGoes) {
    runWithOneDock({.compositor = true});
    putBehind(red, "f01010");
    ASSERT_TRUE(turns(labelZone(), redColour));
    desktop().stopCompositor();
    EXPECT_TRUE(turns(labelZone(), redColour));
    const auto strip = layout("right", twoTiles).strip();
    EXPECT_TRUE(turns({strip.x, strip.y}, redColour));
    EXPECT_TRUE(turns(layout("right", twoTiles).icon(0), apps[0].colour));
}

TEST_F(DockSurface, LetsClicksAboveTheStripThrough) {
    runWithOneDock();
    putBehind(red, "f01010");
    const auto place = labelZone();
    desktop().pointer().click(place);
    const auto press = "press " + std::to_string(place.x) + ' ' + std::to_string(place.y);
    EXPECT_TRUE(eventually([&] { return readFile(record()).contains(press); }))
        << readFile(record());
}

TEST_F(DockSurface, LetsClicksThroughBesideTheStripOfAMagnifyingDock) {
    auto& desktop = make({.monitors = twoMonitors()});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    desktop.home().writePreferences(
        R"({"onboardingCompleted": true, "magnificationEnabled": true, "magnification": 2})");
    desktop.runVireline();
    twoTiles.magnification = 2;
    ASSERT_TRUE(docksSettle(twoTiles));
    putBehind(red, "f01010");
    // The window is longer than the strip at rest, so that the magnified strip fits.
    const auto frame = plannedDock("right", twoTiles).frame;
    ASSERT_LT(frame.x, layout("right", twoTiles).strip().x - 8);
    const PixelPoint place{frame.x + 2, frame.bottom() - 4};
    desktop.pointer().click(place);
    const auto press = "press " + std::to_string(place.x) + ' ' + std::to_string(place.y);
    EXPECT_TRUE(eventually([&] { return readFile(record()).contains(press); }))
        << readFile(record());
}

TEST_F(DockSurface, TakesClicksOnTheStrip) {
    runWithOneDock();
    putBehind(red, "f01010");
    desktop().pointer().click(glass());
    // The second click, above the strip, passes through, whereas the first one did not.
    const auto place = labelZone();
    desktop().pointer().click(place);
    const auto press = "press " + std::to_string(place.x) + ' ' + std::to_string(place.y);
    ASSERT_TRUE(eventually([&] { return readFile(record()).contains(press); }));
    const auto first =
        "press " + std::to_string(glass().x) + ' ' + std::to_string(glass().y) + '\n';
    EXPECT_FALSE(readFile(record()).contains(first)) << readFile(record());
}

TEST_F(DockSurface, ShowsTheNameOfTheTileUnderThePointer) {
    runWithOneDock({.compositor = true});
    putBehind(red, "f01010");
    constexpr int middleOfLabels = 13;
    const auto dock = plannedDock("right", twoTiles).frame;
    const PixelPoint label{dock.center().x, dock.y + middleOfLabels};
    ASSERT_TRUE(turns(label, redColour));
    desktop().pointer().moveTo(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(turnsFrom(label, redColour));
    desktop().pointer().moveTo(desktop().monitor("left").frame.center());
    EXPECT_TRUE(turns(label, redColour));
}

TEST_F(DockSurface, WakesUpPerFrameAndNotPerMovementOfThePointer) {
    constexpr int movements = 400;
    runWithOneDock();
    const auto tile = layout("right", twoTiles).icon(0);
    const pid_t program = desktop().vireline().pid();
    EXPECT_TRUE(eventually([&] {
        ContextSwitches switches{program};
        for (int step = 0; step < movements; ++step)
            desktop().pointer().moveTo({tile.x + step % 30 - 15, tile.y});
        return comesToRest(program, std::chrono::milliseconds{100}) &&
               switches.count() < movements / 4;
    }));
    desktop().pointer().click(tile);
    EXPECT_TRUE(logs("click launch " + apps[0].id));
}

TEST_F(DockSurface, DrawsIconsPixelByPixelAtTwiceTheScale) {
    runWithOneDock({.scales = {{"right", 2}}});
    ASSERT_TRUE(turns(layout("right", twoTiles).icon(0), apps[0].colour));
    const auto icon = desktop().picture(plannedDock("right", twoTiles).frame);
    constexpr int side = 88;
    const auto bounds = icon.bounds(apps[0].colour);
    EXPECT_EQ(bounds.width, side);
    EXPECT_EQ(bounds.height, side);
    EXPECT_EQ(icon.count(apps[0].colour), side * side);
}

}
}
