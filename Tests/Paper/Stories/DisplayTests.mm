// Displays that are attached, removed, asleep or changed while the program runs.
#include "ProgramTest.hpp"

namespace vireline {
namespace {

class Displays : public ProgramTest {
protected:
    Displays() { pinThreeApps(); }
};

TEST_F(Displays, TakeTheirDockAlongWhenTheyGo) {
    runProgram([] {
        auto displays = threeDisplays();
        displays.pop_back();
        paper::plug(displays);
        paper::advance(1);
        EXPECT_NE(dockOn(2), nil);
        EXPECT_EQ(dockOn(3), nil);
    });
}

TEST_F(Displays, GetADockWhenTheyCome) {
    runProgram([] {
        auto displays = threeDisplays();
        displays.push_back({.number = 4,
                            .frame = {{3360, 0}, {1024, 768}},
                            .visible = {{3360, 0}, {1024, 768}},
                            .scale = 1});
        paper::plug(displays);
        paper::advance(1);
        ASSERT_NE(dockOn(4), nil);
        EXPECT_DOUBLE_EQ(dockOn(4).frame.origin.y, 4);
    });
}

TEST_F(Displays, NameTheirDocksForAssistiveTechnology) {
    runProgram([] {
        auto displays = threeDisplays();
        displays[2].number = 4;
        displays[2].name = "Studio Display";
        paper::plug(displays);
        paper::advance(1);
        EXPECT_EQ(dockOn(2).accessibilityTitle.paperText, "Vireline dock on Display 2");
        EXPECT_EQ(dockOn(4).accessibilityTitle.paperText, "Vireline dock on Studio Display");
    });
}

TEST_F(Displays, SwapDocksWhenTheSystemsDockMoves) {
    runProgram([] {
        auto displays = threeDisplays();
        displays[0].visible = {{0, 0}, {1440, 875}};
        displays[1].visible = {{1440, 70}, {1920, 985}};
        paper::plug(displays);
        paper::advance(1);
        EXPECT_NE(dockOn(1), nil);
        EXPECT_EQ(dockOn(2), nil);
    });
}

TEST_F(Displays, SurviveAStormOfChanges) {
    runProgram([] {
        auto displays = threeDisplays();
        for (int round = 0; round < 20; ++round) {
            displays.pop_back();
            paper::plug(displays);
            paper::advance(0.05);
            displays = threeDisplays();
            paper::plug(displays);
            paper::announceMainDisplay(2);
            paper::advance(round % 2 == 0 ? 0.6 : 0.1);
        }
        paper::advance(1);
        EXPECT_NE(dockOn(2), nil);
        EXPECT_NE(dockOn(3), nil);
        EXPECT_EQ(paper::orderedWindows().size(), 2U);
    });
}

TEST_F(Displays, GetTheirDockBackInItsPlaceAfterSleep) {
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const NSRect planned = dock.frame;
        // The window server moves windows to the remaining displays.
        [dock setFrame:{{100, 100}, planned.size} display:YES];
        [NSWorkspace.sharedWorkspace.notificationCenter paperPost:NSWorkspaceDidWakeNotification
                                                         userInfo:nil];
        paper::advance(1);
        EXPECT_EQ(dock.frame.origin.x, planned.origin.x);
        EXPECT_EQ(dock.frame.origin.y, planned.origin.y);
    });
}

TEST_F(Displays, MayAllBeAway) {
    runProgram([] {
        paper::plug({});
        paper::advance(1);
        EXPECT_TRUE(paper::orderedWindows().empty());
        paper::plug(threeDisplays());
        paper::advance(1);
        EXPECT_NE(dockOn(2), nil);
    });
}

}
}
