#include "Applications/ClientWindows/HiddenWindows.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vireline::x11 {
namespace {

using IDs = std::vector<xcb_window_t>;
using Restored = std::vector<HiddenWindows::Restored>;

/// An app's windows as the window manager reports them, and which of them the dock hides.
class HiddenWindowsTest : public testing::Test {
protected:
    HiddenWindowsTest() {
        for (const xcb_window_t id : {1U, 2U, 3U}) {
            ClientWindow window{};
            window.id = id;
            window.isOrdinary = true;
            window.lastActive = id;
            app.windows.push_back(window);
        }
    }

    ClientWindow& window(xcb_window_t id) { return app.windows.at(id - 1); }
    void report(xcb_window_t id, bool isHidden) {
        window(id).isHidden = isHidden;
        hidden.update({&app, 1}, active);
    }
    IDs hide() { return hidden.hide(app, 0, now); }
    Restored bringBack() { return hidden.bringBack(app, now); }

    AppGroup app;
    HiddenWindows hidden;
    xcb_window_t active = 3;
    double now = 100;
};

TEST_F(HiddenWindowsTest, HidesWhatIsShownOnTheCurrentDesktop) {
    window(1).desktop = 1;
    window(2).isHidden = true;
    ClientWindow helper{};
    helper.id = 4;
    app.windows.push_back(helper);

    EXPECT_EQ(hide(), IDs{3});
}

TEST_F(HiddenWindowsTest, HidesOnEveryDesktopWhereNoneIsKnown) {
    window(1).desktop = 1;

    EXPECT_EQ(hidden.hide(app, std::nullopt, now), (IDs{1, 2, 3}));
}

TEST_F(HiddenWindowsTest, BringsBackWhatIsReportedIconifiedTheMostRecentLast) {
    window(1).lastActive = 9;
    ASSERT_EQ(hide(), (IDs{1, 2, 3}));
    for (const xcb_window_t id : {1U, 2U, 3U})
        report(id, true);

    EXPECT_EQ(bringBack(), (Restored{{2, true}, {3, true}, {1, true}}));
    EXPECT_EQ(bringBack(), Restored{});
}

TEST_F(HiddenWindowsTest, BringsBackWhatTheWindowManagerHasNotReportedYet) {
    hide();
    report(1, true);

    EXPECT_EQ(bringBack(), (Restored{{1, true}, {2, false}, {3, false}}));
}

TEST_F(HiddenWindowsTest, LeavesAloneWhatOthersRestoredAndWhatOthersIconified) {
    window(3).isHidden = true;
    hide();
    report(1, true);
    report(2, true);
    report(1, false);

    EXPECT_EQ(bringBack(), (Restored{{2, true}}));
}

TEST_F(HiddenWindowsTest, HidesAgainWhatIsStillToBeRestored) {
    hide();
    report(1, true);
    bringBack();

    EXPECT_EQ(hide(), (IDs{1, 2, 3}));
    // The first report is about the earlier request.
    hidden.update({&app, 1}, active);
    EXPECT_EQ(bringBack(), (Restored{{1, false}, {2, false}, {3, false}}));
}

TEST_F(HiddenWindowsTest, TakesAWindowThatIsIconifiedMuchLaterForOneThatTheUserIconified) {
    hide();
    report(1, true);
    bringBack();
    report(1, false);
    now += 60;
    report(1, true);

    EXPECT_EQ(hide(), (IDs{2, 3}));
}

TEST_F(HiddenWindowsTest, ForgetsWindowsThatAreGone) {
    hide();
    app.windows.pop_back();
    hidden.update({&app, 1}, XCB_NONE);

    EXPECT_EQ(bringBack(), (Restored{{1, false}, {2, false}}));
}

TEST_F(HiddenWindowsTest, EveryWindowOfAnAppIsLeavingUntilItIsReported) {
    hide();
    EXPECT_TRUE(hidden.isLeaving(3, now));
    // The focus moves from one window to the next while they are being iconified.
    active = 2;
    report(3, true);

    EXPECT_TRUE(hidden.isLeaving(2, now));
    EXPECT_FALSE(hidden.isLeaving(3, now));
    EXPECT_FALSE(hidden.isLeaving(7, now));
}

TEST_F(HiddenWindowsTest, NothingIsLeavingOnceItIsBroughtBack) {
    hide();
    bringBack();

    EXPECT_FALSE(hidden.isLeaving(3, now));
}

TEST_F(HiddenWindowsTest, AWindowThatIsNeverIconifiedStays) {
    hide();
    active = 9;
    hidden.update({&app, 1}, active);
    EXPECT_FALSE(hidden.isLeaving(3, now)) << "the focus has gone elsewhere";

    hide();
    EXPECT_TRUE(hidden.isLeaving(3, now));
    EXPECT_FALSE(hidden.isLeaving(3, now + HiddenWindows::settlingSeconds));
}

}
}
