// The program's own windows, its status item, hiding apps, and moving other programs' windows.
#include "ProgramTest.hpp"

#include <algorithm>

namespace vireline {
namespace {

class ProgramWindows : public ProgramTest {
protected:
    ProgramWindows() { pinThreeApps(); }

    static NSWindow* openSettings() {
        EXPECT_TRUE(paper::chooseStatusItem("Settings…"));
        return paper::windowTitled("Vireline Settings");
    }
};

TEST_F(ProgramWindows, OfSettingsWriteWhatIsSwitched) {
    runProgram([this] {
        NSWindow* const settings = openSettings();
        ASSERT_NE(settings, nil);
        EXPECT_TRUE(settings.visible);
        const id control = controlNamed(settings, "Automatically hide and show the dock");
        ASSERT_NE(control, nil);
        switchOn(control, true);
        paper::advance(1);
        EXPECT_NE(preferences().find("\"autoHide\": true"), std::string::npos) << preferences();
    });
}

TEST_F(ProgramWindows, OfSettingsMoveDocksToAnotherEdge) {
    runProgram([] {
        NSWindow* const settings = openSettings();
        const id position = controlNamed(settings, "Position on screen");
        ASSERT_NE(position, nil);
        [position setSelectedSegment:1];
        [position paperAct];
        paper::advance(1);
        const NSRect frame = dockOn(2).frame;
        EXPECT_DOUBLE_EQ(frame.origin.x, 1444);
        EXPECT_GT(frame.size.height, frame.size.width);
    });
}

TEST_F(ProgramWindows, OfSettingsAreOneWindowHoweverOftenTheyAreOpened) {
    runProgram([] {
        NSWindow* const first = openSettings();
        EXPECT_EQ(openSettings(), first);
        EXPECT_TRUE(first.paperIsKey);
    });
}

TEST_F(ProgramWindows, ComeToTheFrontWhenActivationIsRefused) {
    paper::refuseActivation(true);
    runProgram([] { EXPECT_FALSE(openSettings().paperIsBehind); });
}

TEST_F(ProgramWindows, ComeToTheDesktopThatIsShownAlsoOverAFullScreen) {
    runProgram([] {
        EXPECT_EQ(openSettings().collectionBehavior,
                  NSWindowCollectionBehaviorMoveToActiveSpace |
                      NSWindowCollectionBehaviorFullScreenAuxiliary);
    });
}

TEST_F(ProgramWindows, AreShownOnTheDesktopThatTheUserIsOn) {
    runProgram([] {
        NSWindow* const settings = openSettings();
        EXPECT_TRUE(paper::isShown(settings));
        paper::showSpace(1);
        EXPECT_FALSE(paper::isShown(settings));
        EXPECT_TRUE(paper::isShown(dockOn(2)));
        openSettings();
        EXPECT_TRUE(paper::isShown(settings));
    });
}

TEST_F(ProgramWindows, AreShownOverAnotherProgramsFullScreenAsDocksAre) {
    runProgram([] {
        paper::showSpace(2, true);
        EXPECT_TRUE(paper::isShown(openSettings()));
        EXPECT_TRUE(paper::isShown(dockOn(2)));
    });
}

class Focus : public ProgramWindows, public testing::WithParamInterface<int> {
protected:
    Focus() { paper::setSystemVersion(GetParam()); }

    static bool isInFront() { return NSApplication.sharedApplication.paperIsActive; }
};

TEST_P(Focus, GoesBackToTheProgramThatHadItWhenTheLastWindowCloses) {
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        NSRunningApplication* const before = paper::launch(mail);
        before.active = YES;
        NSWindow* const settings = openSettings();
        EXPECT_TRUE(isInFront());
        [settings close];
        paper::drain();
        EXPECT_TRUE(before.active);
        EXPECT_FALSE(isInFront());
        // Since version 14 a program has to yield before it can activate another one.
        const auto& asked = paper::requests();
        EXPECT_EQ(std::ranges::count(asked, "yield to com.example.Mail"), GetParam() >= 14 ? 1 : 0);
    });
}

TEST_P(Focus, StaysWhileThereIsAnotherWindow) {
    writePreferences("{}");
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        NSRunningApplication* const before = paper::launch(mail);
        before.active = YES;
        NSWindow* const settings = openSettings();
        NSWindow* const tour = paper::windowTitled("Welcome to Vireline");
        [settings close];
        paper::drain();
        EXPECT_TRUE(isInFront());
        [tour close];
        paper::drain();
        EXPECT_TRUE(before.active);
    });
}

TEST_P(Focus, IsLeftAloneWhereTheUserHasTakenItElsewhere) {
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        NSRunningApplication* const before = paper::launch(mail);
        before.active = YES;
        NSWindow* const settings = openSettings();
        NSApplication.sharedApplication.paperIsActive = NO;
        [settings close];
        paper::drain();
        EXPECT_FALSE(before.active);
    });
}

TEST_P(Focus, GoesToNoProgramThatHasEnded) {
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        NSRunningApplication* const before = paper::launch(mail);
        before.active = YES;
        NSWindow* const settings = openSettings();
        paper::quitButStayListed(502);
        [settings close];
        paper::drain();
        EXPECT_FALSE(before.active);
    });
}

INSTANTIATE_TEST_SUITE_P(Versions, Focus, testing::Values(13, 14));

TEST_F(ProgramWindows, OfSettingsOpenWhenTheProgramIsOpenedAgain) {
    runProgram([] {
        paper::reopen();
        EXPECT_TRUE(paper::windowTitled("Vireline Settings").visible);
    });
}

TEST_F(ProgramWindows, HaveSlidersThatComeToRestOnAStep) {
    runProgram([this] {
        NSSlider* const slider = controlNamed(openSettings(), "Icon size");
        ASSERT_NE(slider, nil);
        paper::dragSlider(slider, 51.776);
        EXPECT_DOUBLE_EQ(slider.doubleValue, 52);
        EXPECT_NE(preferences().find("\"iconSize\": 52"), std::string::npos) << preferences();
        // A small movement that ends on the same step.
        paper::dragSlider(slider, 52.2);
        EXPECT_DOUBLE_EQ(slider.doubleValue, 52);
    });
}

TEST_F(ProgramWindows, HaveSlidersThatAssistiveTechnologyMovesByWholeSteps) {
    runProgram([] {
        NSSlider* const slider = controlNamed(openSettings(), "Icon size");
        ASSERT_NE(slider, nil);
        // The current event is a press on a dock, since an increment by assistive technology has no
        // event of its own.
        paper::movePointer({2400, 30});
        paper::press();
        paper::loseRelease();
        slider.doubleValue = 51.4;
        [slider paperAct];
        EXPECT_DOUBLE_EQ(slider.doubleValue, 51);
    });
}

TEST_F(ProgramWindows, OfTheTourComeAtTheFirstStartAndNeverAgain) {
    writePreferences("{}");
    runProgram([] {
        NSWindow* const tour = paper::windowTitled("Welcome to Vireline");
        ASSERT_NE(tour, nil);
        EXPECT_TRUE(tour.visible);
        for (int page = 0; page < 2; ++page) {
            push(controlNamed(tour, "Continue"));
            paper::advance(0.5);
        }
        push(controlNamed(tour, "Start using Vireline"));
        paper::advance(0.5);
        EXPECT_FALSE(tour.visible);
    });
    EXPECT_NE(preferences().find("\"onboardingCompleted\": true"), std::string::npos);
}

TEST_F(ProgramWindows, LeaveTheLoginItemToTheStatusMenu) {
    runProgram([] {
        EXPECT_TRUE(paper::chooseStatusItem("Launch at Login"));
        EXPECT_EQ(SMAppService.mainAppService.status, SMAppServiceStatusEnabled);
        EXPECT_TRUE(paper::chooseStatusItem("Launch at Login"));
        EXPECT_EQ(SMAppService.mainAppService.status, SMAppServiceStatusNotRegistered);
    });
}

class AutoHide : public ProgramWindows {
protected:
    AutoHide() { writePreferences(R"({"onboardingCompleted": true, "autoHide": true})"); }
};

TEST_F(AutoHide, CollapsesADockToALineAndBringsItBack) {
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const double collapsed = dock.frame.size.height;
        paper::movePointer({2400, 1});
        paper::advance(1);
        const double revealed = dock.frame.size.height;
        EXPECT_GT(revealed, collapsed + 50);
        paper::movePointer({2400, 600});
        paper::advance(3);
        EXPECT_DOUBLE_EQ(dock.frame.size.height, collapsed);
    });
}

class ForeignWindows : public ProgramWindows {
protected:
    ForeignWindows() { paper::setTrusted(true); }
};

TEST_F(ForeignWindows, ComeToTheDockThatIsClicked) {
    writePreferences(R"({"onboardingCompleted": true, "summonOnClick": true})");
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        paper::launch(mail);
        paper::foreignApps()[502].windows = {{.position = {100, 100}, .size = {400, 300}}};
        paper::click(centreOf(tileNamed(dockOn(2), "Mail")));
        paper::advance(1);
        EXPECT_GE(paper::foreignApps()[502].windows[0].position.x, 1440);
    });
    EXPECT_TRUE(logHas("summon pid 502 to display #2: ok"));
}

TEST_F(ForeignWindows, FillTheDisplayOnADoubleClick) {
    writePreferences(R"({"onboardingCompleted": true, "fillOnDoubleClick": true})");
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        paper::launch(mail);
        paper::foreignApps()[502].windows = {{.position = {100, 100}, .size = {400, 300}}};
        const NSPoint at = centreOf(tileNamed(dockOn(2), "Mail"));
        paper::click(at);
        paper::click(at);
        paper::advance(1);
        EXPECT_GT(paper::foreignApps()[502].windows[0].size.width, 1800);
    });
    EXPECT_TRUE(logHas("fill pid 502 on #2: ok"));
}

TEST_F(ForeignWindows, OfAProgramThatHangsHoldTheDocksUpOnce) {
    writePreferences(R"({"onboardingCompleted": true, "summonOnClick": true})");
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        paper::launch(mail);
        paper::foreignApps()[502].isHung = true;
        const NSPoint at = centreOf(tileNamed(dockOn(2), "Mail"));
        const double before = paper::now();
        paper::click(at);
        paper::advance(1);
        paper::click(at);
        paper::advance(1);
        // Two clicks and a wait of two seconds, but only one call that timed out.
        EXPECT_EQ(paper::foreignApps()[502].questions, 1);
        EXPECT_NEAR(paper::now() - before, 2.5, 0.01);
    });
}

TEST_F(ForeignWindows, FillTheDisplayOnADoubleClickThatTheFirstClickHeldUp) {
    writePreferences(
        R"({"onboardingCompleted": true, "summonOnClick": true, "fillOnDoubleClick": true})");
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        paper::launch(mail);
        paper::foreignApps()[502].isHung = true;
        const NSPoint at = centreOf(tileNamed(dockOn(2), "Mail"));
        const double first = paper::now();
        paper::click(at);
        EXPECT_GE(paper::now() - first, 0.5);
        paper::clickEarlier(at, paper::now() - first - 0.2);
    });
    EXPECT_TRUE(logHas("double-click fill")) << testing::PrintToString(log());
}

TEST_F(ForeignWindows, OfAProgramThatHangsAreNotAskedForAllTheTimeWhileTheyAreToFill) {
    writePreferences(R"({"onboardingCompleted": true, "fillOnDoubleClick": true})");
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        paper::launch(mail);
        paper::foreignApps()[502].isHung = true;
        const NSPoint at = centreOf(tileNamed(dockOn(2), "Mail"));
        paper::click(at);
        paper::click(at);
        paper::advance(20);
        EXPECT_LE(paper::foreignApps()[502].questions, 4);
    });
}

}
}
