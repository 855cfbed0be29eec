// The program's own windows, its status item, hiding, and what it does with other programs'
// windows.
#include "ProgramTest.hpp"

namespace vireline {
namespace {

class OwnWindows : public ProgramTest {
protected:
    OwnWindows() { pinThreeApps(); }

    static NSWindow* openSettings() {
        EXPECT_TRUE(paper::chooseStatusItem("Settings…"));
        return paper::windowTitled("Vireline Settings");
    }
};

TEST_F(OwnWindows, OfSettingsWriteWhatIsSwitched) {
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

TEST_F(OwnWindows, OfSettingsMoveDocksToAnotherEdge) {
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

TEST_F(OwnWindows, OfSettingsAreOneWindowHoweverOftenTheyAreOpened) {
    runProgram([] {
        NSWindow* const first = openSettings();
        EXPECT_EQ(openSettings(), first);
        EXPECT_TRUE(first.paperIsKey);
    });
}

TEST_F(OwnWindows, OfTheTourComeAtTheFirstStartAndNeverAgain) {
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

TEST_F(OwnWindows, LeaveTheLoginItemToTheStatusMenu) {
    runProgram([] {
        EXPECT_TRUE(paper::chooseStatusItem("Launch at Login"));
        EXPECT_EQ(SMAppService.mainAppService.status, SMAppServiceStatusEnabled);
        EXPECT_TRUE(paper::chooseStatusItem("Launch at Login"));
        EXPECT_EQ(SMAppService.mainAppService.status, SMAppServiceStatusNotRegistered);
    });
}

class AutoHide : public OwnWindows {
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

class ForeignWindows : public OwnWindows {
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

class Anchor : public OwnWindows {
protected:
    Anchor() { writePreferences(R"({"onboardingCompleted": true, "anchorAppleDock": true})"); }
};

TEST_F(Anchor, AsksForThePermissionAndStartsOnceItIsGranted) {
    runProgram([] {
        EXPECT_EQ(paper::enabledTaps(), 0U);
        paper::setTrusted(true);
        paper::advance(5);
        EXPECT_EQ(paper::enabledTaps(), 1U);
    });
    EXPECT_TRUE(logHas("anchor guard: requested Accessibility permission"));
    EXPECT_TRUE(logHas("anchor guard active, 2 zones"));
}

TEST_F(Anchor, KeepsThePointerAboveTheBottomOfADockedDisplay) {
    paper::setTrusted(true);
    runProgram([] {
        paper::movePointer({2000, 0});
        EXPECT_DOUBLE_EQ(NSEvent.mouseLocation.y, 3);
        paper::movePointer({2000, 500});
        EXPECT_DOUBLE_EQ(NSEvent.mouseLocation.y, 500);
        paper::movePointer({700, 0});
        EXPECT_DOUBLE_EQ(NSEvent.mouseLocation.y, 0);
    });
}

TEST_F(Anchor, EndsWithTheSwitch) {
    paper::setTrusted(true);
    runProgram([] {
        switchOn(controlNamed(openSettings(), "Keep Apple's Dock on its own display"), false);
        EXPECT_EQ(paper::enabledTaps(), 0U);
        paper::movePointer({2000, 0});
        EXPECT_DOUBLE_EQ(NSEvent.mouseLocation.y, 0);
    });
}

}
}
