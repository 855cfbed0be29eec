#include "Applications/ClientWindows/HiddenWindows.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vireline::xdg {
namespace {

constexpr WindowID first{1};
constexpr WindowID second{2};
constexpr WindowID third{3};
constexpr WindowID fourth{4};

using IDs = std::vector<WindowID>;
using Restored = std::vector<HiddenWindows::Restored>;

/// An app's windows as the window manager reports them, and which of them the dock hides.
class HiddenWindowsTest : public testing::Test {
protected:
    HiddenWindowsTest() {
        for (const WindowID id : {first, second, third}) {
            ClientWindow window{};
            window.id = id;
            window.isOrdinary = true;
            window.lastActive = static_cast<std::uint64_t>(id);
            app.windows.push_back(window);
        }
    }

    ClientWindow& window(WindowID id) { return app.windows.at(static_cast<std::size_t>(id) - 1); }
    void report(WindowID id, bool isHidden) {
        window(id).isHidden = isHidden;
        hidden.update({&app, 1}, active);
    }
    IDs hide() { return hidden.hide(app, 0, now); }
    Restored bringBack() { return hidden.bringBack(app, now); }

    AppGroup app;
    HiddenWindows hidden;
    WindowID active = third;
    double now = 100;
};

TEST_F(HiddenWindowsTest, HidesWhatIsShownOnTheCurrentDesktop) {
    window(first).desktop = 1;
    window(second).isHidden = true;
    ClientWindow helper{};
    helper.id = fourth;
    app.windows.push_back(helper);

    EXPECT_EQ(hide(), IDs{third});
}

TEST_F(HiddenWindowsTest, HidesOnEveryDesktopWhereNoneIsKnown) {
    window(first).desktop = 1;

    EXPECT_EQ(hidden.hide(app, std::nullopt, now), (IDs{first, second, third}));
}

TEST_F(HiddenWindowsTest, BringsBackWhatIsReportedIconifiedTheMostRecentLast) {
    window(first).lastActive = 9;
    ASSERT_EQ(hide(), (IDs{first, second, third}));
    for (const WindowID id : {first, second, third})
        report(id, true);

    EXPECT_EQ(bringBack(), (Restored{{second, true}, {third, true}, {first, true}}));
    EXPECT_EQ(bringBack(), Restored{});
}

TEST_F(HiddenWindowsTest, BringsBackWhatTheWindowManagerHasNotReportedYet) {
    hide();
    report(first, true);

    EXPECT_EQ(bringBack(), (Restored{{first, true}, {second, false}, {third, false}}));
}

TEST_F(HiddenWindowsTest, LeavesAloneWhatOthersRestoredAndWhatOthersIconified) {
    window(third).isHidden = true;
    hide();
    report(first, true);
    report(second, true);
    report(first, false);

    EXPECT_EQ(bringBack(), (Restored{{second, true}}));
}

TEST_F(HiddenWindowsTest, HidesAgainWhatIsStillToBeRestored) {
    hide();
    report(first, true);
    bringBack();

    EXPECT_EQ(hide(), (IDs{first, second, third}));
    // The first report is about the earlier request.
    hidden.update({&app, 1}, active);
    EXPECT_EQ(bringBack(), (Restored{{first, false}, {second, false}, {third, false}}));
}

TEST_F(HiddenWindowsTest, AttributesAMuchLaterIconificationToTheUser) {
    hide();
    report(first, true);
    bringBack();
    report(first, false);
    now += 60;
    report(first, true);

    EXPECT_EQ(hide(), (IDs{second, third}));
}

TEST_F(HiddenWindowsTest, ForgetsWindowsThatAreGone) {
    hide();
    app.windows.pop_back();
    hidden.update({&app, 1}, WindowID::none);

    EXPECT_EQ(bringBack(), (Restored{{first, false}, {second, false}}));
}

TEST_F(HiddenWindowsTest, EveryWindowOfAnAppIsLeavingUntilItIsReported) {
    hide();
    EXPECT_TRUE(hidden.isLeaving(third, now));
    // The focus moves from one window to the next while they are being iconified.
    active = second;
    report(third, true);

    EXPECT_TRUE(hidden.isLeaving(second, now));
    EXPECT_FALSE(hidden.isLeaving(third, now));
    EXPECT_FALSE(hidden.isLeaving(WindowID{7}, now));
}

TEST_F(HiddenWindowsTest, NothingIsLeavingOnceItIsBroughtBack) {
    hide();
    bringBack();

    EXPECT_FALSE(hidden.isLeaving(third, now));
}

TEST_F(HiddenWindowsTest, AWindowThatIsNeverIconifiedStays) {
    hide();
    active = WindowID{9};
    hidden.update({&app, 1}, active);
    EXPECT_FALSE(hidden.isLeaving(third, now)) << "the focus has gone elsewhere";

    hide();
    EXPECT_TRUE(hidden.isLeaving(third, now));
    EXPECT_FALSE(hidden.isLeaving(third, now + HiddenWindows::settlingSeconds));
}

}
}
