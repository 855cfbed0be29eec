/// The welcome tour on a real desktop: all of its pages, and that it is shown only once.
#include "ProgramWindowTest.hpp"

namespace vireline::desktop {
namespace {

using Role = AccessibleRole;

class TourWindow : public ProgramWindowTest {
protected:
    /// Presses a button and waits for the page whose title begins like this.
    void turn(const std::string& button, const std::string& title) {
        click(Role::pushButton, button);
        EXPECT_TRUE(says(title));
    }
    void finish() {
        click(Role::pushButton, "Start using Vireline");
        EXPECT_TRUE(closes(tourTitle));
        EXPECT_TRUE(logs("onboarding completed"));
    }
};

TEST_F(TourWindow, IsShownAtTheFirstStartAndOnlyUntilItIsFinished) {
    auto& desktop = runForTheFirstTime();
    ASSERT_TRUE(opens(tourTitle));
    const auto frame = desktop.client().frame(window(tourTitle)).value();
    EXPECT_EQ(frame.width, 560);
    EXPECT_EQ(frame.height, 480);
    EXPECT_TRUE(says("Every display deserves a dock"));
    EXPECT_FALSE(has(Role::pushButton, "Back"));

    turn("Continue", "It behaves like the real thing");
    turn("Continue", "Window superpowers");
    EXPECT_FALSE(has(Role::pushButton, "Continue"));
    turn("Back", "It behaves like the real thing");
    turn("Back", "Every display deserves a dock");
    turn("Continue", "It behaves like the real thing");
    turn("Continue", "Window superpowers");
    finish();
    EXPECT_TRUE(saved().onboardingCompleted);

    desktop.stopVireline();
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(twoTiles));
    EXPECT_EQ(window(tourTitle), xcb_window_t{XCB_NONE});
}

TEST_F(TourWindow, EnablesTheWindowFeatures) {
    auto& desktop = runForTheFirstTime();
    ASSERT_TRUE(opens(tourTitle));
    turn("Continue", "It behaves like the real thing");
    turn("Continue", "Window superpowers");

    click(Role::pushButton, "Enable window superpowers");

    EXPECT_TRUE(says("Enabled. Enjoy."));
    EXPECT_TRUE(saves([](const Settings& settings) {
        return settings.anchorAppleDock && settings.openOnThisDisplay && settings.summonOnClick &&
               settings.fillOnDoubleClick && !settings.onboardingCompleted;
    }));
    EXPECT_FALSE(has(Role::pushButton, "Enable window superpowers"));
    finish();
    EXPECT_TRUE(desktop.vireline().isRunning());
}

TEST_F(TourWindow, ComesBackAfterItWasClosedUnfinished) {
    auto& desktop = runForTheFirstTime();
    ASSERT_TRUE(opens(tourTitle));
    turn("Continue", "It behaves like the real thing");
    close(tourTitle);
    EXPECT_FALSE(saved().onboardingCompleted);

    desktop.stopVireline();
    desktop.runVireline();

    EXPECT_TRUE(opens(tourTitle));
    EXPECT_TRUE(says("Every display deserves a dock"));
}

TEST_F(TourWindow, GoesByKeyboard) {
    runForTheFirstTime();
    ASSERT_TRUE(opens(tourTitle));
    ASSERT_TRUE(eventually([&] { return desktop().activeWindow() == window(tourTitle); }));
    ASSERT_TRUE(takesKeys());

    desktop().keyboard().type(Keyboard::enter);
    EXPECT_TRUE(says("It behaves like the real thing"));
    desktop().keyboard().type(Keyboard::enter);
    EXPECT_TRUE(says("Window superpowers"));
    desktop().keyboard().type(Keyboard::enter);

    EXPECT_TRUE(closes(tourTitle));
    EXPECT_TRUE(saves([](const Settings& settings) { return settings.onboardingCompleted; }));
}

TEST_F(TourWindow, LetsTheDocksWorkMeanwhile) {
    runForTheFirstTime();
    ASSERT_TRUE(opens(tourTitle));
    ASSERT_TRUE(docksSettle(twoTiles));

    desktop().pointer().click(layout("right", twoTiles).icon(0));

    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
}

}
}
