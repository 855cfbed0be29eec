// What becomes of a dock's window and its content.
#include "ProgramTest.hpp"

#include <algorithm>

namespace vireline {
namespace {

class Panels : public ProgramTest {
protected:
    Panels() { pinThreeApps(); }

    static NSView* content(NSWindow* dock) { return dock.contentView.subviews.firstObject; }
};

TEST_F(Panels, StayWhenTheUserHidesAllOtherPrograms) {
    runProgram([] {
        paper::hideOthers();
        EXPECT_NE(dockOn(2), nil);
        EXPECT_NE(dockOn(3), nil);
    });
}

TEST_F(Panels, TakeOnTheScaleOfTheirDisplayWithoutBeingTold) {
    runProgram([] {
        const auto sharpness = [] {
            double most = 0;
            for (NSView* node in content(dockOn(2)).subviews)
                most = std::max(most, node.layer.contentsScale);
            return most;
        };
        paper::display();
        const double before = sharpness();
        auto displays = threeDisplays();
        displays[1].scale = 2;
        paper::plug(displays);
        paper::advance(1);
        paper::display();
        EXPECT_DOUBLE_EQ(sharpness(), 2 * before);
    });
}

TEST_F(Panels, ShowNoAppThatHasEndedButIsStillListed) {
    const paper::App paint = makeApp("Paint", 600);
    runProgram([&] {
        paper::launch(paint);
        EXPECT_NE(tileNamed(dockOn(2), "Paint"), nil);
        paper::quitButStayListed(600);
        EXPECT_EQ(tileNamed(dockOn(2), "Paint"), nil);
    });
}

}
}
