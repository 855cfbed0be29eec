/// The effect of settings that are in the preferences file at start-up.
#include "DesktopTest.hpp"

namespace vireline::desktop {
namespace {

class Preferences : public DesktopTest {
protected:
    /// Runs the program with two displays, two pinned apps, and these additional preferences.
    VirtualDesktop& runWith(const std::string& members) {
        auto& desktop = make({.monitors = twoMonitors()});
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().pin(apps);
        desktop.home().writePreferences(R"({"onboardingCompleted": true, )" + members + "}");
        desktop.runVireline();
        return desktop;
    }

    /// The frame of the first app's icon on the display "right", in screen coordinates.
    [[nodiscard]] PixelRect firstIcon() {
        const PixelRect display = desktop().monitor("right").frame;
        auto icon = desktop().picture(display).bounds(apps[0].colour);
        icon.x += display.x;
        icon.y += display.y;
        return icon;
    }

    const std::vector<App> apps = someApps(2);
    Request twoTiles = tiles(2);
};

TEST_F(Preferences, PutTheDocksOnTheLeft) {
    runWith(R"("position": "left")");
    twoTiles.position = DockPosition::left;
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(turns(layout("right", twoTiles).icon(1), apps[1].colour));
}

TEST_F(Preferences, PutTheDocksOnTheRight) {
    runWith(R"("position": "right")");
    twoTiles.position = DockPosition::right;
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(turns(layout("right", twoTiles).icon(1), apps[1].colour));
}

TEST_F(Preferences, PutTheDocksAtTheBottom) {
    runWith(R"("position": "bottom")");
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(turns(layout("right", twoTiles).icon(1), apps[1].colour));
}

TEST_F(Preferences, MakeTheIconsSmaller) {
    constexpr int size = 24;
    runWith(R"("iconSize": 24)");
    twoTiles.maxIconSize = size;
    ASSERT_TRUE(docksSettle(twoTiles));
    ASSERT_TRUE(turns(layout("right", twoTiles).icon(0), apps[0].colour));
    EXPECT_EQ(firstIcon().width, size);
    EXPECT_EQ(firstIcon().height, size);
}

TEST_F(Preferences, MakeTheIconsLarger) {
    constexpr int size = 64;
    runWith(R"("iconSize": 64)");
    twoTiles.maxIconSize = size;
    ASSERT_TRUE(docksSettle(twoTiles));
    ASSERT_TRUE(turns(layout("right", twoTiles).icon(0), apps[0].colour));
    EXPECT_EQ(firstIcon().width, size);
    EXPECT_EQ(firstIcon().height, size);
}

TEST_F(Preferences, MagnifyTheTileUnderThePointer) {
    runWith(R"("magnificationEnabled": true, "magnification": 2)");
    twoTiles.magnification = 2;
    ASSERT_TRUE(docksSettle(twoTiles));
    const auto icon = layout("right", twoTiles).icon(0);
    ASSERT_TRUE(turns(icon, apps[0].colour));
    constexpr int atRest = 44;
    EXPECT_EQ(firstIcon().width, atRest);
    desktop().pointer().moveTo(icon);
    // The edges of a magnified tile lie between pixels, where its colour is blended with the
    // strip's.
    EXPECT_TRUE(eventually([&] { return firstIcon().width >= 2 * atRest - 1; })) << firstIcon();
    EXPECT_LE(firstIcon().width, 2 * atRest);
    desktop().pointer().moveTo(desktop().monitor("left").frame.center());
    EXPECT_TRUE(eventually([&] { return firstIcon().width == atRest; })) << firstIcon();
}

TEST_F(Preferences, KeepTilesAtRestWhileMagnificationIsOff) {
    runWith(R"("magnificationEnabled": false, "magnification": 2)");
    ASSERT_TRUE(docksSettle(twoTiles));
    const auto icon = layout("right", twoTiles).icon(0);
    ASSERT_TRUE(turns(icon, apps[0].colour));
    const auto before = firstIcon();
    desktop().pointer().moveTo(icon);
    // The label appears with the pointer, and by then the tile would have started to grow.
    const auto dock = plannedDock("right", twoTiles).frame;
    const PixelRect labels{dock.x, dock.y, dock.width, 20};
    const auto empty = desktop().picture(labels);
    EXPECT_TRUE(eventually([&] { return !(desktop().picture(labels) == empty); }));
    EXPECT_EQ(firstIcon(), before);
}

TEST_F(Preferences, ShowTheManualListInItsOrder) {
    auto& desktop = make({.monitors = twoMonitors()});
    for (const auto& app : apps)
        desktop.home().install(app);
    const auto stored = [&](const App& app, const std::string& path) {
        return R"({"bundleID": ")" + app.id + R"(", "name": ")" + app.name + R"(", "path": ")" +
               path + R"("})";
    };
    desktop.home().writePreferences(
        R"({"onboardingCompleted": true, "sourceMode": "manual", "manualApps": [)" +
        stored(apps[1], desktop.home().entry(apps[1].id).string()) + "," +
        stored({"org.example.Gone", "Gone", {}, {}}, "/nowhere/Gone.desktop") + "," +
        stored(apps[0], desktop.home().entry(apps[0].id).string()) + "]}");
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(twoTiles));
    const auto dock = layout("right", twoTiles);
    EXPECT_TRUE(turns(dock.icon(0), apps[1].colour));
    EXPECT_TRUE(turns(dock.icon(1), apps[0].colour));
}

TEST_F(Preferences, SeedAnEmptyManualListFromTheOtherDock) {
    runWith(R"("sourceMode": "manual")");
    EXPECT_TRUE(logs("manual list seeded from mirror, 2 apps"));
    EXPECT_TRUE(docksSettle(twoTiles));
    const auto saved = readFile(desktop().home().preferences());
    EXPECT_TRUE(saved.contains(apps[0].id)) << saved;
    EXPECT_TRUE(saved.contains(apps[1].id)) << saved;
}

TEST_F(Preferences, InManualModeIgnoreChangesOfTheOtherDock) {
    runWith(R"("sourceMode": "manual")");
    ASSERT_TRUE(docksSettle(twoTiles));
    desktop().home().pin(std::vector{apps[1]});
    EXPECT_TRUE(logs("mirror: 1 pinned apps from Apple's Dock"));
    EXPECT_TRUE(docksSettle(twoTiles));
}

TEST_F(Preferences, AreReadOnlyOnce) {
    runWith(R"("position": "left")");
    twoTiles.position = DockPosition::left;
    ASSERT_TRUE(docksSettle(twoTiles));
    desktop().home().writePreferences(R"({"onboardingCompleted": true, "position": "right"})");
    // Forces a new plan from the settings in memory.
    const int before = desktop().log().count("reconcile ");
    auto monitors = twoMonitors();
    monitors[1].frame.height -= 100;
    desktop().setMonitors(monitors);
    ASSERT_TRUE(logs("reconcile ", before + 1));
    EXPECT_TRUE(docksSettle(twoTiles));
}

TEST_F(Preferences, MayHoldMembersOfALaterVersion) {
    runWith(R"("position": "left", "somethingNew": {"a": [1, 2]}, "schemaVersion": 99)");
    twoTiles.position = DockPosition::left;
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_EQ(desktop().log().count("preferences unreadable"), 0);
}

TEST_F(Preferences, MayBeMissing) {
    auto& desktop = make({.monitors = twoMonitors()});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    std::filesystem::remove_all(desktop.home().dataFolder());
    desktop.runVireline();
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_FALSE(std::filesystem::exists(desktop.home().preferences()));
}

TEST_F(Preferences, WithEveryWindowFeatureOnStillLaunchAndHide) {
    runWith(R"("anchorAppleDock": true, "openOnThisDisplay": true, "summonOnClick": true,
               "fillOnDoubleClick": true)");
    ASSERT_TRUE(docksSettle(twoTiles));
    desktop().pointer().click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(logs("click launch " + apps[0].id));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
}

}
}
