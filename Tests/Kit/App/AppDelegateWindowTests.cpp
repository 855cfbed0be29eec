#include "Support/AppDelegateTest.hpp"

#include <algorithm>

namespace vireline {
namespace {

using test::AppDelegateTest;

// Behaviour: app-delegate-1
TEST_F(AppDelegateTest, AFirstLaunchTakesTheDefaultsAndShowsTheTour) {
    start();

    // A strip of four icons of 44 points, and no zones in force.
    EXPECT_EQ(icons()[0].frame.width, 44);
    EXPECT_EQ(dock().frame.height, 84);
    EXPECT_FALSE(platform.pointerTaps.isTapped());
    ASSERT_EQ(platform.programWindows.tours.size(), 1U);
    EXPECT_TRUE(platform.programWindows.tours[0]->isVisible);
    EXPECT_TRUE(platform.programWindows.forms.empty());
}

// Behaviour: onboarding-1
TEST_F(AppDelegateTest, TheTourOfAProgramWhoseGuardRunsShowsThePermissionAtOnce) {
    Settings settings;
    settings.anchorAppleDock = true;
    store(settings);
    start();

    auto& tour = *platform.programWindows.tours.at(0);
    tour.listener.onboardingActed(OnboardingAction::advance);
    tour.listener.onboardingActed(OnboardingAction::advance);

    ASSERT_TRUE(tour.content.permission && tour.content.permission->line);
    EXPECT_EQ(tour.content.permission->line->text, "Enabled. Enjoy.");
}

// Behaviour: app-delegate-2
TEST_F(AppDelegateTest, ALaunchAfterTheTourWasFinishedShowsNoWindow) {
    Settings settings;
    settings.onboardingCompleted = true;
    store(settings);
    start();

    EXPECT_TRUE(platform.programWindows.tours.empty());
    EXPECT_TRUE(platform.programWindows.forms.empty());
}

TEST_F(AppDelegateTest, TheTourIsNotShownAgainOnceItWasFinished) {
    start();
    platform.programWindows.tours[0]->listener.onboardingActed(OnboardingAction::finish);

    start();

    EXPECT_EQ(platform.programWindows.tours.size(), 1U);
}

TEST_F(AppDelegateTest, TheStatusItemOpensTheWindowsAndQuits) {
    start();

    EXPECT_EQ(platform.statusBar.made, 1);
    platform.statusBar.choose("Settings…");
    EXPECT_TRUE(platform.programWindows.forms.at(0)->isVisible);
    platform.programWindows.tours.at(0)->closeByButton();
    platform.statusBar.choose("Welcome Tour…");
    EXPECT_TRUE(platform.programWindows.tours.at(0)->isVisible);
    platform.statusBar.choose("Quit Vireline");
    EXPECT_EQ(platform.application.terminations, 1);
}

TEST_F(AppDelegateTest, TheSwitchAndTheMenuShareOneLoginItem) {
    start();

    platform.statusBar.choose("Launch at Login");
    platform.statusBar.choose("Settings…");
    const Form& form = platform.programWindows.forms.at(0)->content;
    EXPECT_TRUE(std::get<Toggle>(test::rowOf(form, SettingsField::launchAtLogin).control).isOn);

    set(SettingsField::launchAtLogin, false);
    EXPECT_EQ(std::get<MenuCommand>(platform.statusBar.openMenu().entries.at(2)).isChecked, false);
}

TEST_F(AppDelegateTest, ASecondStartShowsTheSettings) {
    start();

    platform.application.announceSecondStart();
    platform.application.announceSecondStart();

    ASSERT_EQ(platform.programWindows.forms.size(), 1U);
    EXPECT_EQ(platform.programWindows.forms[0]->timesShown, 2);
}

TEST_F(AppDelegateTest, ASecondaryClickBesideTheTilesLeadsToTheSettings) {
    start();

    secondaryClickBesideTheTiles();
    EXPECT_EQ(dock().menus.back().menu, (Menu{{MenuCommand{"Settings…"}}}));
    dock().choose(0);

    EXPECT_TRUE(platform.programWindows.forms.at(0)->isVisible);
}

TEST_F(AppDelegateTest, ASecondaryClickBesideTheTilesQuitsWhereThereIsNoPlaceForAStatusItem) {
    start();
    platform.statusBar.hasPlace = false;

    secondaryClickBesideTheTiles();
    EXPECT_EQ(dock().menus.back().menu,
              (Menu{{MenuCommand{"Settings…"}, MenuCommand{"Quit Vireline"}}}));
    dock().choose(1);

    EXPECT_EQ(platform.application.terminations, 1);
    EXPECT_EQ(log.messages().back(), "quit from dock");
}

TEST_F(AppDelegateTest, ADragInADockShowsInTheSettingsAtOnce) {
    start();
    platform.statusBar.choose("Settings…");
    const Point from = icons()[0].frame.center();
    const Point to = icons()[1].frame.center();

    dock().listener().pointerEvent({PointerEvent::Kind::pressed, from});
    dock().listener().pointerEvent({PointerEvent::Kind::moved, {to.x + 2, to.y}});
    dock().listener().pointerEvent({PointerEvent::Kind::released, {to.x + 2, to.y}});

    const Form& form = platform.programWindows.forms.at(0)->content;
    EXPECT_EQ(std::get<RadioGroup>(test::rowOf(form, SettingsField::sourceMode).control).selected,
              1U);
}

TEST_F(AppDelegateTest, ADragInADockCanBeUndoneInTheMenuBesideTheTiles) {
    start();
    const Point from = icons()[0].frame.center();
    const Point to = icons()[1].frame.center();
    dock().listener().pointerEvent({PointerEvent::Kind::pressed, from});
    dock().listener().pointerEvent({PointerEvent::Kind::moved, {to.x + 2, to.y}});
    dock().listener().pointerEvent({PointerEvent::Kind::released, {to.x + 2, to.y}});
    const std::string dragged = *platform.fileSystem.read(preferences(), 100'000);

    secondaryClickBesideTheTiles();
    EXPECT_EQ(std::get<MenuCommand>(dock().menus.back().menu.entries.at(0)).title,
              "Undo Move of Finder");
    dock().choose(0);

    const auto restored = SettingsCoding::decode(*platform.fileSystem.read(preferences(), 100'000));
    EXPECT_NE(SettingsCoding::encode(*restored), dragged);
    EXPECT_EQ(restored->sourceMode, SourceMode::mirror);
    EXPECT_TRUE(restored->manualApps.empty());
    secondaryClickBesideTheTiles();
    EXPECT_EQ(dock().menus.back().menu, (Menu{{MenuCommand{"Settings…"}}}));
}

}
}
