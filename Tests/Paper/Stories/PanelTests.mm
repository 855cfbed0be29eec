// The position of a dock's content in its window and on the display, and the fate of its window.
#include "ProgramTest.hpp"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace vireline {
namespace {

class Panels : public ProgramTest {
protected:
    Panels() { pinThreeApps(); }

    static NSView* content(NSWindow* dock) { return dock.contentView.subviews.firstObject; }

    /// Distance of the content's right edge from that of display 2.
    static double fromTheRightEdge(NSWindow* dock) {
        const NSRect view = content(dock).frame;
        return 1440 + 1920 - (dock.frame.origin.x + view.origin.x + view.size.width);
    }

    static double offThePixels(double length, double scale) {
        return std::abs(length * scale - std::round(length * scale));
    }
};

struct Look {
    int iconSize;
    double magnification;
    const char* position;
};

class PanelsAtAnySize : public Panels, public testing::WithParamInterface<Look> {};

TEST_P(PanelsAtAnySize, LieOnWholePixels) {
    const Look& look = GetParam();
    std::ostringstream settings;
    settings << R"({"onboardingCompleted": true, "magnificationEnabled": true, "iconSize": )"
             << look.iconSize << R"(, "magnification": )" << look.magnification
             << R"(, "position": ")" << look.position << R"("})";
    writePreferences(settings.str());
    runProgram([] {
        for (const unsigned display : {2U, 3U}) {
            NSWindow* const dock = dockOn(display);
            const NSRect view = content(dock).frame;
            const double scale = dock.backingScaleFactor;
            // Content beyond the view's edges lies outside its bounds.
            const NSPoint origin = content(dock).bounds.origin;
            EXPECT_LT(offThePixels(view.origin.y + view.size.height + origin.y, scale), 1e-9);
            EXPECT_LT(offThePixels(view.origin.x - origin.x, scale), 1e-9);
        }
    });
}

// Fractional lengths: 44 points that grow to 57.2, 33 that grow to 42.9, and 50.49.
INSTANTIATE_TEST_SUITE_P(Sizes, PanelsAtAnySize,
                         testing::Values(Look{44, 1.3, "bottom"}, Look{33, 1.3, "left"},
                                         Look{33, 1.53, "right"}, Look{61, 1.7, "bottom"},
                                         Look{44, 1.5, "bottom"}));

TEST_F(Panels, SlideWithTheirWindowAtTheRightEdge) {
    writePreferences(R"({"onboardingCompleted": true, "autoHide": true, "position": "right"})");
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const double collapsed = fromTheRightEdge(dock);
        std::vector<double> distances;
        const auto watch = [&](int frames) {
            for (int frame = 0; frame < frames; ++frame) {
                distances.push_back(fromTheRightEdge(dock));
                paper::advance(1.0 / 60);
            }
        };
        paper::movePointer({1440 + 1919, dock.frame.origin.y + 50});
        watch(60);
        const double out = fromTheRightEdge(dock);
        paper::movePointer({2000, 600});
        watch(120);
        EXPECT_NEAR(distances.back(), collapsed, 0.01);
        // It moves by at most the gap beside an expanded dock.
        const auto [nearest, farthest] = std::ranges::minmax(distances);
        EXPECT_NEAR(farthest - nearest, out - collapsed, 0.01);
        EXPECT_NEAR(out - collapsed, 4, 0.01);
    });
}

TEST_F(Panels, DoNotBelieveInAPointerThatIsOverAWindowInFront) {
    writePreferences(R"({"onboardingCompleted": true, "autoHide": true})");
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const double collapsed = dock.frame.size.height;
        paper::cover({{1440, 0}, {1920, 200}});
        paper::movePointer({2400, 2});
        // After sleep a dock checks where the pointer is.
        [NSWorkspace.sharedWorkspace.notificationCenter paperPost:NSWorkspaceDidWakeNotification
                                                         userInfo:nil];
        paper::advance(1);
        EXPECT_DOUBLE_EQ(dock.frame.size.height, collapsed);
    });
}

TEST_F(Panels, CountTheirTopmostRowOfPixelsAsTheirsAndTheOneBelowThemAsNot) {
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const NSRect strip = [tileNamed(dock, "Mail") accessibilityFrame];
        const double x = strip.origin.x + strip.size.width / 2;
        const auto isHit = [&](double y) {
            return [dock.contentView hitTest:{x - dock.frame.origin.x, y - dock.frame.origin.y}] !=
                   nil;
        };
        double top = 1080;
        while (top > 0 && !isHit(top))
            top -= 0.5;
        double bottom = top;
        while (bottom > 0 && isHit(bottom))
            bottom -= 0.5;
        // A row of pixels is identified by its upper edge, so both ends are integers.
        EXPECT_DOUBLE_EQ(top, std::round(top));
        EXPECT_DOUBLE_EQ(bottom, std::round(bottom));
        EXPECT_FALSE(isHit(bottom));
    });
}

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
