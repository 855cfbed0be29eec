/// Docks under window managers that do not keep them in place.
#include "Display/OddManager.hpp"
#include "Display/WindowTest.hpp"
#include "Panels/Keeping/WindowPlace.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <algorithm>
#include <chrono>
#include <optional>

namespace vireline {
namespace {

using desktop::PixelRect;
using test::EventLog;
using test::OddManager;
using Habit = OddManager::Habit;

class OddManagerTest : public test::WindowTest {
protected:
    static constexpr PixelRect place{1720, 1012, 400, 84};
    static constexpr PixelRect display{1280, 300, 1280, 800};

    void SetUp() override {
        WindowTest::SetUp();
        desk().stopWindowManager();
    }

    void TearDown() override {
        manager_.reset();
        desk().startWindowManager();
        WindowTest::TearDown();
    }

    OddManager& start(Habit habit) { return manager_.emplace(desk().display(), habit); }
    void stop() { manager_.reset(); }

    static PixelRect frameOfDock() {
        return client().frame(windowOf("main")).value_or(PixelRect{});
    }
    static bool isUnmanaged() { return client().overridesRedirect(windowOf("main")); }
    static bool isManaged() {
        const auto windows = client().managedWindows();
        return !isUnmanaged() && std::ranges::count(windows, windowOf("main")) > 0;
    }
    /// Whether the program takes over the dock and it reaches its place.
    bool comesToItsPlaceUnmanaged() {
        return eventually([&] { return isUnmanaged() && frameOfDock() == place; });
    }

    /// Shows another program's window.
    static xcb_window_t showWindow(const PixelRect& frame, bool isFullScreen = false) {
        const auto window = client().createWindow(frame, 0x00804020);
        if (isFullScreen)
            client().setAtoms(window, "_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
        client().map(window);
        client().sync();
        EXPECT_TRUE(eventually([&] { return client().isViewable(window); }));
        return window;
    }

    /// Shows a plain window of type dock.
    static xcb_window_t showBareDock(const PixelRect& frame) {
        const auto window = client().createWindow(frame, 0);
        client().setAtoms(window, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
        client().map(window);
        client().sync();
        EXPECT_TRUE(eventually([&] { return client().isViewable(window); }));
        return window;
    }

    static bool isDockAbove(xcb_window_t window) {
        return desk().docks().isAbove(windowOf("main"), window);
    }

    /// Processes events for longer than any of the program's timeouts.
    static void letTimePass() {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds{700};
        eventually([&] { return std::chrono::steady_clock::now() > end; });
    }

    static void close(xcb_window_t window) {
        client().destroy(window);
        client().sync();
    }

    EventLog log;

private:
    std::optional<OddManager> manager_;
};

TEST_F(OddManagerTest, KeepsADockThatItManagesWell) {
    start(Habit::none);
    const auto dock = showDock("main", log);
    EXPECT_TRUE(eventually([&] { return isManaged(); }));
    letTimePass();
    letTimePass();
    EXPECT_TRUE(isManaged());
    EXPECT_EQ(frameOfDock(), place);
}

TEST_F(OddManagerTest, LosesADockThatItPutsSomewhereElse) {
    start(Habit::docksDocks);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(comesToItsPlaceUnmanaged());
    settle();
    desk().pointer().moveTo(pixelAt("main", {200, 50}));
    EXPECT_TRUE(eventually([&] { return log.has("in"); })) << "it takes the pointer there";
}

TEST_F(OddManagerTest, LosesADockThatItNeverMoves) {
    start(Habit::stranded);
    const auto dock = showDock("main", log);
    EXPECT_TRUE(comesToItsPlaceUnmanaged());
}

TEST_F(OddManagerTest, IsNotGivenTheNextDock) {
    start(Habit::docksDocks);
    EventLog other;
    const auto dock = showDock("main", log);
    ASSERT_TRUE(comesToItsPlaceUnmanaged());
    const auto next = showDock("left", other);
    EXPECT_TRUE(client().overridesRedirect(windowOf("left")));
    EXPECT_EQ(client().frame(windowOf("left")), (PixelRect{440, 812, 400, 84}));
}

TEST_F(OddManagerTest, IsNotExpectedToCarryOutAMoveForEver) {
    start(Habit::stranded);
    const auto window = showBareDock({0, 0, 300, 60});

    x11::WindowPlace moving{connection, window, 1};
    int changes = 0;
    moving.onChange = [&] { ++changes; };
    moving.onGivenUp = [] {};
    moving.set({100, 200, 300, 60});
    EXPECT_TRUE(moving.isUnderWay());
    EXPECT_TRUE(eventually([&] { return !moving.isUnderWay(); }));
    EXPECT_GT(changes, 0) << "no event announces that it has ended";
    EXPECT_EQ(moving.actual(), (x11::PixelRect{0, 0, 300, 60}));
    close(window);
}

TEST_F(OddManagerTest, MayCarryOutAMoveLateBecauseItIsBusy) {
    start(Habit::answersLate);
    const auto window = showBareDock({0, 0, 300, 60});
    x11::WindowPlace moving{connection, window, 1};
    bool hasGivenUp = false;
    moving.onGivenUp = [&] { hasGivenUp = true; };
    moving.set({100, 200, 300, 60});
    const PixelRect goal{100, 200, 300, 60};
    EXPECT_TRUE(eventually([&] { return hasGivenUp || client().frame(window) == goal; }));
    EXPECT_FALSE(hasGivenUp);
    close(window);
}

TEST_F(OddManagerTest, DoesNotCoverADockThatItIgnores) {
    start(Habit::ignoresDocks);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(comesToItsPlaceUnmanaged());
    const auto tiled = showWindow({1290, 310, 1260, 780});
    EXPECT_TRUE(eventually([&] { return isDockAbove(tiled); }));
    const auto second = showWindow({1290, 310, 1260, 780});
    EXPECT_TRUE(eventually([&] { return isDockAbove(second) && isDockAbove(tiled); }));
    close(second);
    close(tiled);
}

TEST_F(OddManagerTest, MayShowAFullScreenWindowOverADockOfOurs) {
    start(Habit::ignoresDocks);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(comesToItsPlaceUnmanaged());
    const auto film = showWindow(display, true);
    const auto normal = showWindow({1290, 310, 200, 100});
    letTimePass();
    EXPECT_FALSE(isDockAbove(film));

    client().setAtoms(film, "_NET_WM_STATE", {});
    const std::uint32_t height = 700;
    xcb_configure_window(client().get(), film, XCB_CONFIG_WINDOW_HEIGHT, &height);
    client().sync();
    const auto after = showWindow({1290, 310, 1260, 780});
    EXPECT_TRUE(eventually([&] { return isDockAbove(film) && isDockAbove(after); }));
    close(after);
    close(normal);
    close(film);
}

TEST_F(OddManagerTest, FindsItsFullScreenWindowAboveADockThatComesLater) {
    start(Habit::ignoresDocks);
    const auto film = showWindow(display, true);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(comesToItsPlaceUnmanaged());
    EXPECT_TRUE(eventually([&] { return !isDockAbove(film); }));
    close(film);
}

TEST_F(OddManagerTest, MayPutItsWindowsInFramesThatOverrideRedirect) {
    start(Habit::framesWindows);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(comesToItsPlaceUnmanaged());
    const auto tiled = showWindow({1290, 310, 1260, 780});
    EXPECT_TRUE(eventually([&] { return isDockAbove(tiled); }));
    const auto film = showWindow(display, true);
    letTimePass();
    EXPECT_FALSE(isDockAbove(film));
    close(film);
    close(tiled);
}

// Behaviour: dock-panel-5
TEST_F(OddManagerTest, IsToldNotToFocusADock) {
    start(Habit::focusesWindows);
    const auto editor = showWindow({1400, 400, 300, 300});
    ASSERT_TRUE(eventually([&] { return client().focusedWindow() == editor; }));
    const auto dock = showDock("main", log);
    ASSERT_TRUE(eventually([&] { return isManaged(); }));
    EXPECT_EQ(client().focusedWindow(), editor);
    dock->orderOut();
    dock->orderFrontRegardless();
    ASSERT_TRUE(eventually([&] { return client().isViewable(windowOf("main")); }));
    letTimePass();
    EXPECT_EQ(client().focusedWindow(), editor);
    close(editor);
}

TEST_F(OddManagerTest, LosesADockThatItPutsABorderAround) {
    start(Habit::bordersDocks);
    const auto dock = showDock("main", log);
    EXPECT_TRUE(comesToItsPlaceUnmanaged());
}

TEST_F(OddManagerTest, LosesADockThatItLetsAWindowCover) {
    start(Habit::coversDocks);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(eventually([&] { return isManaged(); }));
    letTimePass();
    const auto cover = showWindow({1500, 600, 700, 480});
    EXPECT_TRUE(eventually([&] { return isUnmanaged() && isDockAbove(cover); }));
    EXPECT_EQ(frameOfDock(), place);
    close(cover);
}

TEST_F(OddManagerTest, KeepsADockBelowWindowsThatBelongAboveIt) {
    start(Habit::coversDocks);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(eventually([&] { return isManaged(); }));
    const auto keepsManagedBelow = [](const PixelRect& frame, auto... property) {
        const auto window = client().createWindow(frame, 0x00804020);
        client().setAtoms(window, property...);
        client().map(window);
        client().sync();
        EXPECT_TRUE(eventually([&] { return client().isViewable(window); }));
        letTimePass();
        letTimePass();
        EXPECT_TRUE(isManaged());
        EXPECT_FALSE(isDockAbove(window));
        close(window);
    };
    using Values = std::initializer_list<std::string_view>;
    const PixelRect cover{1500, 600, 700, 480};
    keepsManagedBelow(cover, "_NET_WM_STATE", Values{"_NET_WM_STATE_ABOVE"});
    keepsManagedBelow(cover, "_NET_WM_WINDOW_TYPE", Values{"_NET_WM_WINDOW_TYPE_NOTIFICATION"});
    keepsManagedBelow(display, "_NET_WM_STATE", Values{"_NET_WM_STATE_FULLSCREEN"});
    keepsManagedBelow(display, "_NET_WM_STATE", Values{});
}

TEST_F(OddManagerTest, WinsAFightForTheTop) {
    auto& manager = start(Habit::fightsDocks);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(comesToItsPlaceUnmanaged());
    const auto tiled = showWindow({1290, 310, 1260, 780});
    EXPECT_TRUE(eventually([&] { return manager.raises() >= 4; }));
    letTimePass();
    letTimePass();
    const int raises = manager.raises();
    EXPECT_LE(raises, 12);
    letTimePass();
    EXPECT_EQ(manager.raises(), raises) << "it goes on";
    close(tiled);
}

TEST_F(OddManagerTest, IsFollowedByOneThatKeepsTheDockAgain) {
    start(Habit::docksDocks);
    const auto dock = showDock("main", log);
    ASSERT_TRUE(comesToItsPlaceUnmanaged());
    stop();
    desk().startWindowManager();
    EXPECT_TRUE(eventually([&] { return isManaged() && frameOfDock() == place; }));
    desk().stopWindowManager();
}

TEST_F(OddManagerTest, IsNotNeededToKeepADockAboveOtherWindows) {
    const auto dock = showDock("main", log);
    letTimePass();
    const auto cover = showWindow({1500, 600, 700, 480});
    EXPECT_TRUE(eventually([&] { return isDockAbove(cover); }));
    EXPECT_FALSE(isUnmanaged());
    const auto film = showWindow(display);
    letTimePass();
    EXPECT_FALSE(isDockAbove(film)) << "it covers the whole display";
    close(film);
    EXPECT_TRUE(eventually([&] { return isDockAbove(cover); }));
    close(cover);
}

}
}
