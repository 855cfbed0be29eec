#include "Support/AppDelegateTest.hpp"

#include <algorithm>
#include <cstdlib>

namespace vireline {
namespace {

using test::AppDelegateTest;

TEST_F(AppDelegateTest, StartsInAFixedOrderAndShowsTheMirroredApps) {
    start();

    const auto lines = log.messages();
    ASSERT_GE(lines.size(), 4U);
    EXPECT_EQ(lines[0],
              "Vireline started pid=" + std::to_string(platform.application.processIdentifier()));
    EXPECT_EQ(lines[1], "anchor guard off");
    EXPECT_EQ(lines[2], "mirror: 2 pinned apps from Apple's Dock");
    EXPECT_TRUE(lines.back().starts_with("reconcile screens=[1, 2] desired=[2] create=0"));
    EXPECT_EQ(icons().size(), 4U);
}

// Behaviour: app-delegate-3
// Behaviour: dock-view-model-5
TEST_F(AppDelegateTest, DocksAreNotMagnifiedWhileMagnificationIsOff) {
    Settings settings;
    settings.magnification = 2;
    store(settings);
    start();

    EXPECT_EQ(dock().frame.height, 84);
}

TEST_F(AppDelegateTest, ShowsEverySettingOfTheFileFromTheStart) {
    Settings settings;
    settings.sourceMode = SourceMode::manual;
    settings.manualApps = {{notes.bundleID, notes.name, notes.url.path()},
                           {"gone", "Gone", "/Applications/Gone.app"}};
    settings.position = DockPosition::right;
    settings.iconSize = 32;
    settings.autoHide = true;
    settings.magnificationEnabled = true;
    settings.magnification = 1.5;
    store(settings);
    start();

    // Three tiles of 32 points; icons that grow by half need 16 points more.
    EXPECT_EQ(dock().frame.width, 4);
    EXPECT_EQ(dock().frame.maxX(), 3840);
    dock().listener().mouseEntered();
    EXPECT_EQ(dock().frame.width, 58 + 16 + 4);
    EXPECT_EQ(icons().size(), 3U);
    EXPECT_EQ(icons()[0].frame.width, 32);
}

TEST_F(AppDelegateTest, ARunningAppGetsATileAndAnEndedOneLosesIt) {
    start();
    const auto instance = test::FakePlatform::instanceOf(notes);

    platform.running.launch(instance);
    EXPECT_EQ(icons().size(), 5U);
    platform.running.quit(notes.bundleID);
    EXPECT_EQ(icons().size(), 4U);
}

// Behaviour: app-delegate-4
// Behaviour: dock-view-model-2
TEST_F(AppDelegateTest, APinnedAppThatStartsReplacesTheTilesWithoutANewLayout) {
    start();
    log.clear();

    platform.running.launch(test::FakePlatform::instanceOf(mail));

    EXPECT_EQ(reconciles(), 0);
    const auto lit = std::ranges::count_if(dock().scene->nodes, [](const auto& node) {
        return node.id.part == NodeID::Part::dot && node.opacity == 1;
    });
    EXPECT_EQ(lit, 1);
}

// Behaviour: app-delegate-4
// Behaviour: dock-view-model-3
TEST_F(AppDelegateTest, AnUnpinnedAppThatStartsAsksForOneNewLayout) {
    start();
    log.clear();

    platform.running.launch(test::FakePlatform::instanceOf(notes));

    EXPECT_EQ(reconciles(), 1);
}

TEST_F(AppDelegateTest, ASeparatorThatComesOrGoesAsksForANewLayoutToo) {
    platform.running.launch(test::FakePlatform::instanceOf(mail));
    start();
    // Finder, Mail, Downloads and Trash, with one separator.
    EXPECT_EQ(dock().frame.width, 215);

    platform.pin({finder});
    platform.dockPreferences.announceChange();
    platform.runLoop.advance(0.3);
    EXPECT_EQ(icons().size(), 4U);
    EXPECT_EQ(dock().frame.width, 222) << "Mail stands behind a separator of its own";

    platform.pin({finder, mail});
    platform.dockPreferences.announceChange();
    platform.runLoop.advance(0.3);
    EXPECT_EQ(dock().frame.width, 215);
}

TEST_F(AppDelegateTest, AnAppThatChangesGroupsBetweenTheSameSeparatorsAsksForNoNewLayout) {
    platform.running.launch(test::FakePlatform::instanceOf(mail));
    platform.running.launch(test::FakePlatform::instanceOf(notes));
    start();
    log.clear();

    platform.pin({finder});
    platform.dockPreferences.announceChange();
    platform.runLoop.advance(0.3);

    EXPECT_EQ(reconciles(), 0);
}

TEST_F(AppDelegateTest, AClickLaunchesHidesAndReopens) {
    start();
    log.clear();

    clickTile(1);
    EXPECT_EQ(log.messages().back(), "click launch com.apple.mail");
    platform.running.launch(test::FakePlatform::instanceOf(mail));
    platform.running.bringToFront(mail.bundleID);
    platform.runLoop.advance(1);
    clickTile(1);
    EXPECT_EQ(log.messages().back(), "click hide com.apple.mail");
    platform.running.bringToFront("");
    platform.runLoop.advance(1);
    clickTile(1);
    EXPECT_EQ(log.messages().back(), "click reopen com.apple.mail");
}

TEST_F(AppDelegateTest, AUtilityTileOpensItsFolderAndLogsIt) {
    start();

    clickTile(2);

    EXPECT_EQ(platform.workspace.opened, std::vector{*platform.userFolders.downloads()});
    EXPECT_EQ(log.messages().back(), "open folder Downloads");
}

// Behaviour: app-activator-4
TEST_F(AppDelegateTest, RemovingFromTheMenuEditsTheManualListAlone) {
    Settings settings;
    settings.sourceMode = SourceMode::manual;
    settings.manualApps = {{mail.bundleID, mail.name, mail.url.path()},
                           {notes.bundleID, notes.name, notes.url.path()}};
    store(settings);
    start();
    log.clear();

    secondaryClickTile(0);
    ASSERT_EQ(dock().menus.back().menu.entries.size(), 3U);
    dock().choose(2);

    EXPECT_EQ(icons().size(), 3U);
    EXPECT_EQ(log.count("manual remove com.apple.mail"), 1);
    EXPECT_EQ(log.count("removeFromDock reached AppActivator, wiring error"), 0);
    const auto saved = SettingsCoding::decode(
        platform.fileSystem.read(preferences(), std::size_t{1} << 20U).value());
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->manualApps.size(), 1U);
}

TEST_F(AppDelegateTest, GuardsTheDisplaysWithADockIfTheSettingsSaySo) {
    Settings settings;
    settings.anchorAppleDock = true;
    store(settings);
    start();

    EXPECT_EQ(log.messages()[1], "anchor guard active, 0 zones");
    EXPECT_EQ(platform.pointerTaps.move({2500, 1079}), (Point{2500, 1077}));
    EXPECT_EQ(platform.pointerTaps.move({500, 1079}), (Point{500, 1079}));
}

TEST_F(AppDelegateTest, TheGuardFollowsTheDisplays) {
    Settings settings;
    settings.anchorAppleDock = true;
    store(settings);
    start();

    platform.screens.list[1].frame.y = 200;
    platform.screens.announceChange();
    platform.runLoop.advance(0.6);

    EXPECT_EQ(platform.pointerTaps.move({2500, 1079}), (Point{2500, 877}));
}

TEST_F(AppDelegateTest, TheGuardLetsThePointerDownToADisplayBelow) {
    Settings settings;
    settings.anchorAppleDock = true;
    store(settings);
    platform.screens.list = {test::screenAt(1, {0, 0, 1920, 1080}),
                             test::screenWithDock(2, {0, -1080, 1920, 1080})};
    start();

    EXPECT_EQ(platform.pointerTaps.move({500, 1078}), (Point{500, 1078}));
    EXPECT_EQ(platform.pointerTaps.move({500, 1500}), (Point{500, 1500}));

    platform.screens.list = {test::screenAt(1, {0, 0, 1920, 1080}),
                             test::screenWithDock(2, {1920, 0, 1920, 1080})};
    platform.screens.announceChange();
    platform.runLoop.advance(0.6);

    EXPECT_EQ(platform.pointerTaps.move({500, 1500}), (Point{500, 1077}));
}

TEST_F(AppDelegateTest, TheGuardWaitsForThePermission) {
    Settings settings;
    settings.anchorAppleDock = true;
    store(settings);
    platform.accessibility.trusted = false;
    start();
    EXPECT_EQ(log.count("anchor guard: requested Accessibility permission"), 1);

    platform.accessibility.trusted = true;
    platform.runLoop.advance(2);

    EXPECT_EQ(log.messages().back(), "anchor guard active, 1 zones");
    EXPECT_EQ(platform.pointerTaps.move({2500, 1079}), (Point{2500, 1077}));
}

TEST_F(AppDelegateTest, AnySettingThatChangesBringsTheGuardInLineAgain) {
    Settings settings;
    settings.sourceMode = SourceMode::manual;
    settings.manualApps = {{mail.bundleID, mail.name, mail.url.path()},
                           {notes.bundleID, notes.name, notes.url.path()}};
    settings.anchorAppleDock = true;
    store(settings);
    platform.pointerTaps.failure = PlatformError{1, "no tap"};
    start();
    EXPECT_FALSE(platform.pointerTaps.isTapped());

    platform.pointerTaps.failure.reset();
    secondaryClickTile(0);
    dock().choose(2);

    EXPECT_TRUE(platform.pointerTaps.isEnabled());
}

TEST_F(AppDelegateTest, AClickSummonsOpensHereAndFillsIfTheSettingsSaySo) {
    Settings settings;
    settings.openOnThisDisplay = true;
    settings.summonOnClick = true;
    settings.fillOnDoubleClick = true;
    store(settings);
    start();
    const auto running = test::FakePlatform::instanceOf(mail, 100);

    clickTile(1);
    platform.running.launch(running);
    auto& window = platform.accessibility.addWindow(running, {100, 100, 400, 300});
    platform.runLoop.advance(1);
    EXPECT_EQ(window.frame, (Rect{2680, 390, 400, 300})) << "it opens on the clicked display";

    window.frame.x = 100;
    clickTile(1);
    EXPECT_EQ(window.frame.x, 2680) << "it comes to the clicked display";

    window.frame.x = 100;
    platform.runLoop.advance(5);
    platform.pointerSettings.interval = 5;
    clickTile(1);
    clickTile(1);
    EXPECT_EQ(window.frame, (Rect{1920, 0, 1920, 1080 - 92})) << "it fills the clicked display";
}

TEST_F(AppDelegateTest, TheDisplaysAreFollowed) {
    start();

    platform.screens.list.push_back(test::screenAt(3, {-800, 0, 800, 600}));
    platform.screens.announceChange();
    platform.runLoop.advance(0.6);

    EXPECT_EQ(platform.panelWindows.displays(), (std::vector<std::uint32_t>{2, 3}));
}

// Behaviour: app-delegate-3
TEST_F(AppDelegateTest, SwitchingMagnificationOnBringsTheStoredFactorIntoForce) {
    Settings settings;
    settings.magnification = 2;
    store(settings);
    start();

    set(SettingsField::magnificationEnabled, true);

    // Icons that grow to twice their size need their height once more.
    EXPECT_EQ(dock().frame.height, 84 + 44);
}

// Behaviour: app-delegate-5
TEST_F(AppDelegateTest, AChangeOfPositionAloneDeliversThePinnedListAndReconciles) {
    start();
    platform.running.apps.push_back(test::FakePlatform::instanceOf(notes));
    log.clear();

    set(SettingsField::position, std::size_t{1});

    EXPECT_EQ(dock().frame.x, 1924);
    EXPECT_EQ(log.count("rebuilt panel #2 for position change"), 1);
    // A running app that was never announced is noticed along with the new pinned list.
    EXPECT_EQ(icons().size(), 5U);
    EXPECT_GE(reconciles(), 1);
}

TEST_F(AppDelegateTest, EverySettingTakesEffectAtOnce) {
    start();

    set(SettingsField::iconSize, 60.0);
    EXPECT_EQ(icons()[0].frame.width, 60);
    set(SettingsField::autoHide, true);
    // Now the dock extends to the edge, and will collapse soon.
    EXPECT_EQ(dock().frame.height, 88);
    platform.runLoop.advance(0.2);
    EXPECT_EQ(dock().frame.height, 4);
    set(SettingsField::anchorAppleDock, true);
    EXPECT_TRUE(platform.pointerTaps.isEnabled());
    set(SettingsField::anchorAppleDock, false);
    EXPECT_FALSE(platform.pointerTaps.isTapped());
}

TEST_F(AppDelegateTest, TheEnvironmentCanFreezeAMagnifiedState) {
    Settings settings;
    settings.magnificationEnabled = true;
    settings.magnification = 2;
    store(settings);
    ASSERT_EQ(::setenv("VIRELINE_DEMO_CURSOR", "0.5", 1), 0);
    start();
    ::unsetenv("VIRELINE_DEMO_CURSOR");

    EXPECT_GT(icons()[1].frame.width, 80);
    EXPECT_LT(icons()[0].frame.width, icons()[1].frame.width);
}

}
}
