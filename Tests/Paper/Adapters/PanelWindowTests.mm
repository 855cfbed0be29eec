// A dock's window as the kit uses it, without the kit.
#include "Cocoa/Paper.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Panels/MacPanelWindows.hpp"
#include "Unseen.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

class SilentListener final : public PanelWindowListener {
public:
    void mouseEntered() override {}
    void mouseExited() override {}
    void frameDue() override {}
    void pointerEvent(const PointerEvent&) override {}
    void dragEntered(const std::vector<std::string>&) override {}
    bool dragMoved(Point) override { return false; }
    void dragExited() override {}
    bool dropped(Point) override { return false; }
};

class PanelWindowsOfDocks : public testing::Test, private NonCopyable {
protected:
    PanelWindowsOfDocks() {
        @autoreleasepool {
            paper::plug({{.number = 1}});
            panel = MacPanelWindows{}.makePanel(1, {500, 4, 400, 84}, listener);
            panel->orderFrontRegardless();
            paper::drain();
        }
    }
    ~PanelWindowsOfDocks() override {
        paper::answerMenus(nullptr);
        EXPECT_EQ(unseenFaults(), std::vector<std::string>{});
    }

    SilentListener listener;
    std::unique_ptr<PanelWindow> panel;
};

TEST_F(PanelWindowsOfDocks, OpenNoMenuWithoutEntries) {
    @autoreleasepool {
        int opened = 0;
        int closed = 0;
        paper::answerMenus([&](NSMenu*) {
            ++opened;
            return nil;
        });
        panel->popUpMenu({}, {}, [&] { ++closed; });
        EXPECT_EQ(closed, 1) << "at once";
        paper::drain();
        EXPECT_EQ(opened, 0);
        EXPECT_EQ(closed, 1);
    }
}

TEST_F(PanelWindowsOfDocks, CloseTheirMenuWhenTheyAreOrderedOut) {
    @autoreleasepool {
        bool isTrackedAfterwards = true;
        paper::answerMenus([&](NSMenu* native) {
            EXPECT_TRUE(native.paperIsTracking);
            panel->orderOut();
            isTrackedAfterwards = native.paperIsTracking;
            return nil;
        });
        panel->popUpMenu({{MenuCommand{.title = "First"}}}, {}, [] {});
        paper::drain();
        EXPECT_FALSE(isTrackedAfterwards);
    }
}

TEST_F(PanelWindowsOfDocks, WatchForTheEndOfADragOnlyAsLongAsTheyAreTold) {
    @autoreleasepool {
        panel->watchForCancel(true);
        EXPECT_EQ(paper::pendingTimers(), 1U);
        panel->watchForCancel(false);
        EXPECT_EQ(paper::pendingTimers(), 0U);
    }
}

}
}
