// Launch and quit, and the composition of a dock.
#include "ProgramTest.hpp"

namespace vireline {
namespace {

class Start : public ProgramTest {};

TEST_F(Start, ShowsADockOnEveryDisplayButTheOneOfTheSystemsDock) {
    pinThreeApps();
    runProgram([] {
        EXPECT_EQ(dockOn(1), nil);
        EXPECT_NE(dockOn(2), nil);
        EXPECT_NE(dockOn(3), nil);
        EXPECT_EQ(NSApplication.sharedApplication.paperPolicy,
                  NSApplicationActivationPolicyAccessory);
    });
    EXPECT_TRUE(logHas("Vireline started pid=4242")) << testing::PrintToString(log());
}

TEST_F(Start, MakesDocksThatFloatAboveAllDesktopsWithoutTakingTheFocus) {
    pinThreeApps();
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        EXPECT_EQ(dock.level, NSFloatingWindowLevel);
        EXPECT_EQ(dock.collectionBehavior, NSWindowCollectionBehaviorCanJoinAllSpaces |
                                               NSWindowCollectionBehaviorStationary |
                                               NSWindowCollectionBehaviorFullScreenAuxiliary);
        EXPECT_FALSE(dock.canBecomeKeyWindow);
        EXPECT_FALSE(dock.opaque);
        EXPECT_FALSE(dock.paperIsKey);
    });
}

TEST_F(Start, CentresADockJustAboveTheBottomOfItsDisplay) {
    pinThreeApps();
    runProgram([] {
        const NSRect frame = dockOn(2).frame;
        EXPECT_DOUBLE_EQ(frame.origin.x + frame.size.width / 2, 1440 + 1920 / 2.0);
        EXPECT_DOUBLE_EQ(frame.origin.y, 4);
    });
}

TEST_F(Start, MirrorsThePinnedAppsInTheirOrder) {
    pinThreeApps();
    runProgram([] {
        const auto names = tileNames(dockOn(2));
        ASSERT_GE(names.size(), 3U);
        EXPECT_TRUE(names[0].starts_with("Notes")) << names[0];
        EXPECT_TRUE(names[1].starts_with("Mail")) << names[1];
        EXPECT_TRUE(names[2].starts_with("Music")) << names[2];
        EXPECT_EQ(names, tileNames(dockOn(3)));
    });
}

TEST_F(Start, HasNoStateToRestoreThatWouldNeedAWarning) {
    runProgram([] {
        NSApplication* const application = NSApplication.sharedApplication;
        const id<NSApplicationDelegate> delegate = application.delegate;
        ASSERT_TRUE(
            [delegate respondsToSelector:@selector(applicationSupportsSecureRestorableState:)]);
        EXPECT_TRUE([delegate applicationSupportsSecureRestorableState:application]);
    });
}

TEST_F(Start, QuitsFromTheStatusItem) {
    runProgram([] {
        EXPECT_TRUE(paper::chooseStatusItem("Quit Vireline"));
        EXPECT_TRUE(NSApplication.sharedApplication.paperIsTerminated);
    });
}

TEST_F(Start, FollowsAnAppThatIsLaunched) {
    pinThreeApps();
    const paper::App paint = makeApp("Paint", 600);
    runProgram([&] {
        paper::launch(paint);
        EXPECT_NE(tileNamed(dockOn(2), "Paint"), nil);
        paper::quit(600);
        EXPECT_EQ(tileNamed(dockOn(2), "Paint"), nil);
    });
}

}
}
