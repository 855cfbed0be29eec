// The guard that keeps the desktop's own dock on its display, and its event tap.
#include "ProgramTest.hpp"

#include <atomic>
#include <thread>

namespace vireline {
namespace {

class Anchor : public ProgramTest {
protected:
    static NSWindow* openSettings() {
        EXPECT_TRUE(paper::chooseStatusItem("Settings…"));
        return paper::windowTitled("Vireline Settings");
    }

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

TEST_F(Anchor, NeverKeepsThePointerWaitingForTheMainThread) {
    paper::setTrusted(true);
    runProgram([] {
        double y = 0;
        paper::onStall([&] { y = paper::throughTaps({2000, 899}, false).y; });
        paper::stall(1);
        paper::onStall(nullptr);
        EXPECT_EQ(paper::unansweredMoves(), 0U);
        EXPECT_DOUBLE_EQ(y, 897);
    });
}

TEST_F(Anchor, FollowsTheDisplaysWhileItRuns) {
    paper::setTrusted(true);
    runProgram([] {
        auto displays = threeDisplays();
        displays.erase(displays.begin() + 1);
        displays.push_back(
            {.number = 4, .frame = {{1440, 0}, {800, 600}}, .visible = {{1440, 0}, {800, 600}}});
        paper::plug(displays);
        paper::advance(1);
        EXPECT_DOUBLE_EQ(paper::throughTaps({2000, 899}, false).y, 897);
        EXPECT_DOUBLE_EQ(paper::throughTaps({2300, 899}, false).y, 899);
    });
}

TEST_F(Anchor, MayEndWhileThePointerMoves) {
    paper::setTrusted(true);
    runProgram([] {
        std::atomic<bool> isOver = false;
        std::thread moving{[&] {
            while (!isOver)
                EXPECT_LE(paper::throughTaps({2000, 899}, false).y, 899);
        }};
        NSWindow* const settings = openSettings();
        for (int round = 0; round < 50; ++round)
            switchOn(controlNamed(settings, "Keep Apple's Dock on its own display"),
                     round % 2 != 0);
        isOver = true;
        moving.join();
        EXPECT_EQ(paper::enabledTaps(), 1U);
    });
}

TEST_F(Anchor, EndsWithTheSwitch) {
    paper::setTrusted(true);
    runProgram([] {
        NSWindow* const settings = openSettings();
        switchOn(controlNamed(settings, "Keep Apple's Dock on its own display"), false);
        EXPECT_EQ(paper::enabledTaps(), 0U);
        paper::movePointer({2000, 0});
        EXPECT_DOUBLE_EQ(NSEvent.mouseLocation.y, 0);
    });
}

TEST_F(Anchor, ReleasesThePointerWhenThePermissionIsWithdrawn) {
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
