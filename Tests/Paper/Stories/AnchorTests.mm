// The guard that keeps the desktop's own dock on its display, and the event tap that it needs.
#include "ProgramTest.hpp"

namespace vireline {
namespace {

class Anchor : public ProgramTest {
protected:
    Anchor() {
        pinThreeApps();
        writePreferences(R"({"onboardingCompleted": true, "anchorAppleDock": true})");
    }
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
        EXPECT_TRUE(paper::chooseStatusItem("Settings…"));
        NSWindow* const settings = paper::windowTitled("Vireline Settings");
        switchOn(controlNamed(settings, "Keep Apple's Dock on its own display"), false);
        EXPECT_EQ(paper::enabledTaps(), 0U);
        paper::movePointer({2000, 0});
        EXPECT_DOUBLE_EQ(NSEvent.mouseLocation.y, 0);
    });
}

TEST_F(Anchor, LetsGoOfThePointerWhenThePermissionIsWithdrawn) {
    paper::setTrusted(true);
    runProgram([] {
        const std::size_t watching = paper::eventTaps();
        paper::setTrusted(false);
        paper::disableTaps(kCGEventTapDisabledByUserInput);
        EXPECT_EQ(paper::enabledTaps(), 0U);
        EXPECT_LT(paper::eventTaps(), watching);
        paper::setTrusted(true);
        paper::advance(5);
        EXPECT_EQ(paper::enabledTaps(), 1U);
    });
}

TEST_F(Anchor, GoesOnAfterATapThatWasTooSlow) {
    paper::setTrusted(true);
    runProgram([] {
        paper::disableTaps(kCGEventTapDisabledByTimeout);
        EXPECT_EQ(paper::enabledTaps(), 1U);
    });
}

TEST_F(Anchor, NoticesByItselfThatThePermissionIsGone) {
    paper::setTrusted(true);
    runProgram([] {
        paper::setTrusted(false);
        paper::advance(6);
        EXPECT_EQ(paper::enabledTaps(), 0U);
    });
}

TEST_F(Anchor, TriesAgainWhenTheSystemGaveNoTap) {
    paper::setTrusted(true);
    paper::allowTaps(false);
    runProgram([] {
        EXPECT_EQ(paper::enabledTaps(), 0U);
        paper::allowTaps(true);
        paper::advance(5);
        EXPECT_EQ(paper::enabledTaps(), 1U);
    });
}

}
}
