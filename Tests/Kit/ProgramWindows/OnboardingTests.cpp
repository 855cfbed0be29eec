#include "ProgramWindows/OnboardingView.hpp"
#include "ProgramWindows/OnboardingWindow.hpp"
#include "Settings/PreferencesStore.hpp"
#include "Settings/SettingsCoding.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using Status = DockAnchorGuard::Status;
using Rows = std::vector<FeatureRow>;

std::vector<std::string> buttonTitles(const OnboardingPage& page) {
    std::vector<std::string> titles;
    titles.reserve(page.buttons.size());
    for (const OnboardingButton& button : page.buttons)
        titles.push_back(button.title);
    return titles;
}

TEST(OnboardingView, SaysFirstWhatTheProgramDoes) {
    const OnboardingPage page = OnboardingView::page(0, {Status::off}, {});
    EXPECT_EQ(page.title, "Every display deserves a Dock");
    EXPECT_EQ(page.text, "Vireline puts a dock on every display that does not have one. Apple's "
                         "Dock stays exactly where it is, badges and all.");
    EXPECT_EQ(page.rows, Rows{});
    EXPECT_EQ(page.permission, std::nullopt);
}

TEST(OnboardingView, SaysThenHowTheDockBehaves) {
    const OnboardingPage page = OnboardingView::page(1, {Status::off}, {});
    EXPECT_EQ(page.title, "It behaves like the real thing");
    EXPECT_EQ(page.text, "");
    EXPECT_EQ(
        page.rows,
        (Rows{{"cursorarrow.click", "Click to launch, raise, or hide. Right-click for options."},
              {"rectangle.on.rectangle", "Mirrors Apple's Dock automatically. Drag a tile to make "
                                         "it your own list instead."},
              {"slider.horizontal.3", "Auto-hide, position, icon size and magnification live in "
                                      "Settings, in the menu bar."},
              {"arrow.left.arrow.right", "If Apple's Dock visits this display, Vireline politely "
                                         "swaps to the other one."}}));
    EXPECT_EQ(page.permission, std::nullopt);
}

TEST(OnboardingView, OffersTheWindowFeaturesLast) {
    const OnboardingPage page = OnboardingView::page(2, {Status::off}, {});
    EXPECT_EQ(page.title, "Window superpowers");
    EXPECT_EQ(page.text, "One macOS permission unlocks four more features");
    EXPECT_EQ(page.rows, (Rows{{"pin", "Anchor: Apple's Dock stops jumping between displays"},
                               {"macwindow.badge.plus",
                                "Open here: apps launched from a dock open on that display"},
                               {"arrow.right.doc.on.clipboard",
                                "Summon: click a running app to bring its window over"},
                               {"rectangle.expand.vertical",
                                "Fill: double-click to fill the display, dock kept clear"}}));
}

// Behaviour: onboarding-3
TEST(OnboardingView, LeadsForwardAndBackWithinItsPages) {
    EXPECT_EQ(buttonTitles(OnboardingView::page(0, {Status::off}, {})),
              std::vector<std::string>{"Continue"});
    EXPECT_EQ(buttonTitles(OnboardingView::page(1, {Status::off}, {})),
              (std::vector<std::string>{"Back", "Continue"}));
    EXPECT_EQ(buttonTitles(OnboardingView::page(2, {Status::off}, {})),
              (std::vector<std::string>{"Back", "Start using Vireline"}));
}

TEST(OnboardingView, CountsItsPages) {
    for (int step = 0; step <= OnboardingView::lastStep; ++step) {
        EXPECT_EQ(OnboardingView::page(step, {Status::off}, {}).index, step);
        EXPECT_EQ(OnboardingView::page(step, {Status::off}, {}).pageCount, 3);
    }
}

TEST(OnboardingView, OffersToEnableTheFeaturesWhileTheAnchorIsOff) {
    EXPECT_EQ(OnboardingView::page(2, {Status::off}, {}).permission,
              (PermissionBlock{
                  std::nullopt,
                  OnboardingButton{"Enable window superpowers", OnboardingAction::enableFeatures},
                  "Optional. Everything else works without it, and you can change your mind in "
                  "Settings anytime."}));
}

TEST(OnboardingView, SaysWhichFeaturesNeedAWindowManagerThatMovesWindows) {
    for (const Status status : {Status::off, Status::waitingForPermission, Status::active}) {
        const OnboardingPage able = OnboardingView::page(2, {status, true}, {});
        OnboardingPage unable = OnboardingView::page(2, {status, false}, {});
        EXPECT_EQ(unable.text, "The last three need a window manager that can move other programs' "
                               "windows. No such window manager is running now.");
        // The anchor comes first, and does not depend on moving windows.
        EXPECT_TRUE(unable.rows.at(0).text.starts_with("Anchor"));
        unable.text = able.text;
        EXPECT_EQ(unable, able);
    }
}

TEST(OnboardingView, ExplainsWhatItWaitsFor) {
    EXPECT_EQ(OnboardingView::page(2, {Status::waitingForPermission}, {}).permission,
              (PermissionBlock{
                  StatusLine{"", StatusLine::Tone::neutral,
                             "Grant Vireline access in the Accessibility pane that just opened, "
                             "and this turns green by itself.",
                             StatusLine::Tone::neutral, ""},
                  std::nullopt, ""}));
}

TEST(OnboardingView, ShowsInGreenThatTheFeaturesAreEnabled) {
    EXPECT_EQ(OnboardingView::page(2, {Status::active}, {}).permission,
              (PermissionBlock{StatusLine{"checkmark.circle.fill", StatusLine::Tone::positive,
                                          "Enabled. Enjoy.", StatusLine::Tone::neutral, ""},
                               std::nullopt, ""}));
}

TEST(OnboardingView, LeavesOutTheAnchorWhereItIsNotPossible) {
    DesktopWords words;
    words.offersAnchor = false;
    const OnboardingPage page = OnboardingView::page(2, {Status::off}, words);
    EXPECT_EQ(page.text, "Three more features that you can switch on");
    ASSERT_EQ(page.rows.size(), 3U);
    EXPECT_TRUE(page.rows.at(0).text.starts_with("Open here"));
    EXPECT_EQ(OnboardingView::page(2, {Status::off, false}, words).text, words.cannotMoveWindows);
}

TEST(OnboardingWindow, EnablesTheOtherFeaturesWhereTheAnchorIsNotPossible) {
    test::FakePlatform platform;
    platform.words.offersAnchor = false;
    platform.words.permissionPane.clear();
    PreferencesStore store{platform.fileSystem, platform.userFolders};
    DockAnchorGuard anchorGuard{platform.accessibility, platform.pointerTaps, platform.runLoop};
    OnboardingWindowController controller{store, anchorGuard, platform.ports()};
    controller.show();
    auto& tour = *platform.programWindows.tours.at(0);
    tour.listener.onboardingActed(OnboardingAction::advance);
    tour.listener.onboardingActed(OnboardingAction::advance);

    tour.listener.onboardingActed(OnboardingAction::enableFeatures);

    EXPECT_FALSE(store.settings().anchorAppleDock);
    EXPECT_TRUE(store.settings().openOnThisDisplay && store.settings().summonOnClick &&
                store.settings().fillOnDoubleClick);
    ASSERT_TRUE(tour.content.permission && tour.content.permission->line);
    EXPECT_EQ(tour.content.permission->line->text, "Enabled. Enjoy.");
}

TEST(OnboardingWindow, OpensNoPaneWhereThereIsNothingToGrant) {
    test::FakePlatform platform;
    platform.words.permissionPane.clear();
    PreferencesStore store{platform.fileSystem, platform.userFolders};
    DockAnchorGuard anchorGuard{platform.accessibility, platform.pointerTaps, platform.runLoop};
    OnboardingWindowController controller{store, anchorGuard, platform.ports()};
    controller.show();

    platform.programWindows.tours.at(0)->listener.onboardingActed(OnboardingAction::enableFeatures);

    EXPECT_TRUE(store.settings().fillOnDoubleClick);
    EXPECT_TRUE(platform.workspace.openedPanes.empty());
}

class OnboardingWindowTest : public testing::Test {
protected:
    [[nodiscard]] test::FakeTour& window() { return *platform.programWindows.tours.at(0); }
    [[nodiscard]] const OnboardingPage& page() { return window().content; }
    void act(OnboardingAction action) { window().listener.onboardingActed(action); }
    void showLastPage() {
        controller.show();
        act(OnboardingAction::advance);
        act(OnboardingAction::advance);
    }
    /// All settings saved so far.
    [[nodiscard]] std::vector<Settings> saved() {
        std::vector<Settings> records;
        for (const std::string& text : platform.fileSystem.writes[store.fileURL().path()])
            records.push_back(SettingsCoding::decode(text).value_or(Settings{}));
        return records;
    }

    test::LoggedLines log;
    test::FakePlatform platform;
    PreferencesStore store{platform.fileSystem, platform.userFolders};
    DockAnchorGuard anchorGuard{platform.accessibility, platform.pointerTaps, platform.runLoop};
    OnboardingWindowController controller{store, anchorGuard, platform.ports()};
};

TEST_F(OnboardingWindowTest, MakesItsWindowWhenItIsFirstShown) {
    EXPECT_TRUE(platform.programWindows.tours.empty());

    controller.show();
    controller.show();

    EXPECT_EQ(platform.programWindows.tours.size(), 1U);
    EXPECT_EQ(window().style, (WindowStyle{"Welcome to Vireline", {560, 480}, false}));
    EXPECT_EQ(window().timesShown, 2);
    EXPECT_EQ(page(), OnboardingView::page(0, {Status::off}, {}));
}

TEST_F(OnboardingWindowTest, TurnsPagesAndNeverLeavesThem) {
    controller.show();
    act(OnboardingAction::back);
    EXPECT_EQ(page().index, 0);
    act(OnboardingAction::advance);
    EXPECT_EQ(page().index, 1);
    act(OnboardingAction::advance);
    act(OnboardingAction::advance);
    EXPECT_EQ(page().index, 2);
    act(OnboardingAction::back);
    EXPECT_EQ(page().index, 1);
}

TEST_F(OnboardingWindowTest, StaysOnItsPageWhenItIsShownAgainWhileOpen) {
    controller.show();
    act(OnboardingAction::advance);

    controller.show();

    EXPECT_EQ(page().index, 1);
}

TEST_F(OnboardingWindowTest, StartsOverAfterItWasClosed) {
    controller.show();
    act(OnboardingAction::advance);
    window().closeByButton();

    controller.show();

    EXPECT_EQ(page().index, 0);
    EXPECT_FALSE(store.settings().onboardingCompleted);
}

TEST_F(OnboardingWindowTest, FollowsTheWindowManager) {
    const auto saysThatThreeNeedAnother = [this] {
        return page().text.starts_with("The last three need a window manager");
    };
    platform.accessibility.movesWindows = false;
    showLastPage();
    EXPECT_TRUE(saysThatThreeNeedAnother());
    EXPECT_EQ(page().rows.size(), 4U);

    platform.accessibility.changeManager(true);
    EXPECT_FALSE(saysThatThreeNeedAnother());

    platform.accessibility.changeManager(false);
    EXPECT_TRUE(saysThatThreeNeedAnother());
}

// Behaviour: onboarding-1
TEST_F(OnboardingWindowTest, ShowsAPermissionThatIsAlreadyGrantedAtOnce) {
    anchorGuard.enable();

    showLastPage();

    ASSERT_TRUE(page().permission && page().permission->line);
    EXPECT_EQ(page().permission->line->text, "Enabled. Enjoy.");
}

TEST_F(OnboardingWindowTest, TurnsGreenByItselfWhenThePermissionComes) {
    platform.accessibility.trusted = false;
    showLastPage();
    anchorGuard.enable();
    ASSERT_TRUE(page().permission->line);
    EXPECT_TRUE(page().permission->line->text.starts_with("Grant Vireline access"));

    platform.accessibility.trusted = true;
    platform.runLoop.advance(2.1);

    EXPECT_EQ(page().permission->line->text, "Enabled. Enjoy.");
}

TEST_F(OnboardingWindowTest, EnablesTheFourFeaturesOneAfterAnother) {
    showLastPage();

    act(OnboardingAction::enableFeatures);

    const auto records = saved();
    ASSERT_EQ(records.size(), 4U);
    Settings expected;
    expected.anchorAppleDock = true;
    EXPECT_EQ(records[0], expected);
    expected.openOnThisDisplay = true;
    EXPECT_EQ(records[1], expected);
    expected.summonOnClick = true;
    EXPECT_EQ(records[2], expected);
    expected.fillOnDoubleClick = true;
    EXPECT_EQ(records[3], expected);
}

// Behaviour: onboarding-2
TEST_F(OnboardingWindowTest, EnablingTheFeaturesTwiceOpensThePaneTwiceAndSetsTheSameFourSwitches) {
    showLastPage();
    act(OnboardingAction::enableFeatures);
    const Settings once = store.settings();
    EXPECT_EQ(saved().size(), 4U);
    Settings changed = once;
    changed.summonOnClick = false;
    changed.anchorAppleDock = false;
    store.setSettings(changed);

    act(OnboardingAction::enableFeatures);

    EXPECT_EQ(store.settings(), once);
    const std::string pane =
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";
    EXPECT_EQ(platform.workspace.openedPanes, (std::vector<std::string>{pane, pane}));
}

TEST_F(OnboardingWindowTest, FinishesForGood) {
    showLastPage();

    act(OnboardingAction::finish);

    EXPECT_TRUE(store.settings().onboardingCompleted);
    EXPECT_FALSE(window().isVisible);
    EXPECT_EQ(log.messages(), std::vector<std::string>{"onboarding completed"});
}

TEST_F(OnboardingWindowTest, LeavesAClosedWindowAlone) {
    controller.show();
    window().closeByButton();
    const int before = window().presentations;

    anchorGuard.enable();

    EXPECT_EQ(window().presentations, before);
}

}
}
