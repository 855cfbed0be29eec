#include "Display/WindowTest.hpp"

namespace vireline {
namespace {

using desktop::PixelRect;

class RandrScreensTest : public test::WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        observation_ = screens.observeParameters([this] { ++announcements; });
    }

    [[nodiscard]] std::vector<std::optional<std::uint32_t>> ids() const {
        std::vector<std::optional<std::uint32_t>> all;
        for (const PlatformScreen& each : screens.screens()) {
            all.push_back(each.number);
        }
        return all;
    }

    int announcements = 0;

private:
    Subscription observation_;
};

TEST_F(RandrScreensTest, LeadWithThePrimaryAtTheOrigin) {
    ASSERT_EQ(screens.screens().size(), 3U);
    EXPECT_EQ(screens.screens().front().number, idOf("main"));
    EXPECT_EQ(screen("main").frame, (Rect{0, 0, 1280, 800}));
    EXPECT_EQ(screen("left").frame, (Rect{-1280, 200, 1280, 900}));
}

TEST_F(RandrScreensTest, TakeTheirScaleFromQt) {
    EXPECT_EQ(screen("dense").backingScaleFactor, 2);
    EXPECT_EQ(screen("dense").frame, (Rect{1280, -100, 768, 600}));
    EXPECT_EQ(screen("main").backingScaleFactor, 1);
}

TEST_F(RandrScreensTest, AreVisibleAsFarAsNoOtherPanelReservesRoom) {
    EXPECT_EQ(screen("main").visibleFrame, screen("main").frame);

    const auto panel =
        addPanel({1280, 1060, 1280, 40}, {0, 0, 0, 1244, 0, 0, 0, 0, 0, 0, 1280, 2559});
    const Rect less{0, 40, 1280, 760};
    EXPECT_TRUE(eventually([&] { return screen("main").visibleFrame == less; }));
    EXPECT_GT(announcements, 0);
    EXPECT_EQ(screen("dense").visibleFrame, screen("dense").frame);

    client().destroy(panel);
    client().sync();
    EXPECT_TRUE(eventually([&] { return screen("main").visibleFrame == screen("main").frame; }));
}

TEST_F(RandrScreensTest, HearOfAStrutThatChanges) {
    const auto panel = addPanel({1280, 300, 1280, 30}, {});
    settle();
    EXPECT_EQ(screen("main").visibleFrame, screen("main").frame);

    client().setItems(panel, "_NET_WM_STRUT", XCB_ATOM_CARDINAL, {0, 0, 330, 0});
    client().sync();
    EXPECT_TRUE(eventually([&] { return screen("main").visibleFrame == Rect{0, 0, 1280, 770}; }));

    client().destroy(panel);
    client().sync();
    EXPECT_TRUE(eventually([&] { return screen("main").visibleFrame.height == 800; }));
}

TEST_F(RandrScreensTest, SayNothingAboutOrdinaryWindows) {
    const auto window = client().createWindow({100, 100, 200, 200}, 0);
    client().map(window);
    client().sync();
    EXPECT_TRUE(eventually([&] { return client().isViewable(window); }));
    settle();
    settle();
    EXPECT_EQ(announcements, 0);
    client().destroy(window);
    client().sync();
}

TEST_F(RandrScreensTest, AnnounceMonitorsThatComeMoveAndGo) {
    desk().setMonitors({threeMonitors()[0], threeMonitors()[1]});
    EXPECT_TRUE(eventually([&] { return ids().size() == 2; }));
    EXPECT_GT(announcements, 0);

    desk().setMonitors({{"main", {0, 0, 1280, 800}}, {"left", {1280, 100, 1000, 700}}});
    EXPECT_TRUE(eventually([&] { return screen("left").frame == Rect{1280, 0, 1000, 700}; }));

    desk().setMonitors(threeMonitors());
    EXPECT_TRUE(
        eventually([&] { return ids().size() == 3 && screen("dense").backingScaleFactor == 2; }));
}

TEST_F(RandrScreensTest, ShowAMirroredDisplayOnce) {
    auto monitors = threeMonitors();
    monitors[1].frame = monitors[0].frame;
    desk().setMonitors(monitors);
    EXPECT_TRUE(eventually([&] { return ids().size() == 2; }));
    EXPECT_EQ(ids().front(), idOf("main"));
}

TEST_F(RandrScreensTest, FindPanelsThatTheWindowManagerDoesNotList) {
    const auto window = client().createWindow({1400, 400, 300, 300}, 0);
    client().map(window);
    client().sync();
    ASSERT_TRUE(eventually([&] { return client().managedWindows().size() == 1; }));
    settle();

    // The panel is a child of another program's window, like a frame.
    const PixelRect edge{1280, 1060, 1280, 40};
    const auto frame = client().createWindow(edge, 0);
    const auto panel = client().createWindow({0, 0, 1280, 40}, 0);
    client().setItems(panel, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                      {0, 0, 0, 1244, 0, 0, 0, 0, 0, 0, 1280, 2559});
    const std::uint32_t unmanaged = 1;
    xcb_change_window_attributes(client().get(), frame, XCB_CW_OVERRIDE_REDIRECT, &unmanaged);
    xcb_reparent_window(client().get(), panel, frame, 0, 0);
    client().map(panel);
    client().map(frame);
    client().sync();
    EXPECT_TRUE(eventually([&] { return screen("main").visibleFrame.height == 760; }));

    client().destroy(window);
    client().sync();
    ASSERT_TRUE(eventually([&] { return client().managedWindows().empty(); }));
    settle();
    settle();
    EXPECT_EQ(screen("main").visibleFrame.height, 760);
    client().destroy(frame);
    client().sync();
    EXPECT_TRUE(eventually([&] { return screen("main").visibleFrame.height == 800; }));
}

TEST_F(RandrScreensTest, ReadStrutsWithoutAWindowManager) {
    desk().stopWindowManager();
    const auto panel =
        addPanel({1280, 1060, 1280, 40}, {0, 0, 0, 1244, 0, 0, 0, 0, 0, 0, 1280, 2559});
    EXPECT_TRUE(eventually([&] { return screen("main").visibleFrame.height == 760; }));
    desk().startWindowManager();
    settle();
    EXPECT_EQ(screen("main").visibleFrame.height, 760);
    client().destroy(panel);
    client().sync();
    EXPECT_TRUE(eventually([&] { return screen("main").visibleFrame.height == 800; }));
}

}
}
