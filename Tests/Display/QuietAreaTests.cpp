#include "Display/WindowTest.hpp"
#include "VirtualDesktop/Waiting.hpp"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vireline {
namespace {

using desktop::PixelRect;
using desktop::Pointer;
using test::EventLog;

/// A dock that is divided into quiet areas, with a log of its pointer events.
class QuietAreaTest : public test::WindowTest {
protected:
    /// Has a narrow area between two wide ones, and one above them.
    static Scene dividedScene() {
        Scene scene = dockScene();
        scene.hoverAreas = {{194, 26, 6, 58}};
        return scene;
    }

    std::unique_ptr<PanelWindow> showDividedDock(const std::string& monitor = "main") {
        auto dock = showDock(monitor, log);
        dock->present(dividedScene());
        return dock;
    }

    void moveTo(Point view, const std::string& monitor = "main") {
        desk().pointer().moveTo(pixelAt(monitor, view));
    }

    /// In two steps, because the entry event alone does not start sampling.
    void comeTo(Point view, const std::string& monitor = "main") {
        moveTo({view.x + 1, view.y}, monitor);
        settle();
        moveTo(view, monitor);
    }

    /// Moves the pointer there and returns once sampling has stopped.
    void restAt(PanelWindow& dock, Point view, const std::string& monitor = "main") {
        comeTo(view, monitor);
        EXPECT_TRUE(eventually([&] { return !areas(monitor).empty(); }));
        // In each frame the pointer is sampled before the frame is reported.
        for (int frames = 0; frames < 2; ++frames) {
            log.words.clear();
            dock.requestFrame();
            EXPECT_TRUE(eventually([&] { return log.has("frame"); }));
        }
        log.words.clear();
    }

    /// The child windows that watch the pointer, in pixels of the dock's window.
    static std::vector<PixelRect> areas(const std::string& monitor = "main") {
        std::vector<PixelRect> found;
        const auto dock = client().frame(windowOf(monitor)).value_or(PixelRect{});
        for (const xcb_window_t child : client().children(windowOf(monitor))) {
            if (auto frame = client().frame(child)) {
                found.push_back(
                    {frame->x - dock.x, frame->y - dock.y, frame->width, frame->height});
            }
        }
        return found;
    }

    EventLog log;
};

TEST_F(QuietAreaTest, NoMovementWithinOneIsToldOf) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    for (const double x : {110.0, 150.0, 20.0})
        moveTo({x, 60});
    settle();
    EXPECT_EQ(log.words, std::vector<std::string>{});
}

TEST_F(QuietAreaTest, TheWayIntoAnotherOneIsToldOf) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    moveTo({230, 50});
    EXPECT_TRUE(eventually([&] { return log.has("moved 230,50"); }));
    moveTo({30, 50});
    EXPECT_TRUE(eventually([&] { return log.has("moved 30,50"); }));
    EXPECT_FALSE(log.has("out"));
    EXPECT_FALSE(log.has("exited"));
}

TEST_F(QuietAreaTest, OneThatThePointerOnlyPassesIsNotToldOf) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    // The dock can query the pointer only after both movements.
    xcb_grab_server(client().get());
    moveTo({197, 50});
    moveTo({230, 50});
    xcb_ungrab_server(client().get());
    client().sync();
    EXPECT_TRUE(eventually([&] { return log.has("moved 230,50"); }));
    EXPECT_FALSE(log.has("moved 197,50"));
}

TEST_F(QuietAreaTest, OneThatThePointerStaysInIsToldOfHoweverNarrow) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    moveTo({197, 50});
    EXPECT_TRUE(eventually([&] { return log.has("moved 197,50"); }));
}

TEST_F(QuietAreaTest, LeavesWithThePointer) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    desk().pointer().moveTo({5, 5});
    EXPECT_TRUE(eventually([&] { return log.has("out") && areas().empty(); }));
    EXPECT_TRUE(log.has("exited"));
    moveTo({300, 50});
    EXPECT_TRUE(eventually([&] { return log.has("in") && log.has("moved 300,50"); }));
}

TEST_F(QuietAreaTest, PressesAndReleasesInOneAreTheDocks) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    desk().pointer().click(pixelAt("main", {120, 50}));
    EXPECT_TRUE(eventually([&] { return log.has("released 120,50"); }));
    EXPECT_TRUE(log.has("pressed 120,50"));
    restAt(*dock, {110, 50});
    desk().pointer().click(pixelAt("main", {110, 50}), Pointer::Button::secondary);
    EXPECT_TRUE(eventually([&] { return log.has("secondary 110,50"); }));
    for (const char* word : {"out", "exited", "cancelled"})
        EXPECT_FALSE(log.has(word)) << word;
}

TEST_F(QuietAreaTest, EveryMovementIsToldOfWhileAButtonIsHeld) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    desk().pointer().press(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("pressed 100,50") && areas().empty(); }));
    for (const double x : {120.0, 160.0}) {
        moveTo({x, 50});
        const auto word = "moved " + std::to_string(static_cast<int>(x)) + ",50";
        EXPECT_TRUE(eventually([&] { return log.has(word); })) << word;
    }
    moveTo({160, -100});
    EXPECT_TRUE(eventually([&] { return log.has("moved 160,-100"); }));
    desk().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("released 160,-100") && log.has("out"); }));
    EXPECT_TRUE(areas().empty());
}

TEST_F(QuietAreaTest, AreWatchedAgainAfterAPress) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    desk().pointer().press(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return areas().empty(); }));
    desk().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("released 100,50") && !areas().empty(); }));
}

TEST_F(QuietAreaTest, TheWheelOverOneIsNoWayOut) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    for (int notch = 0; notch < 3; ++notch) {
        desk().pointer().press(Pointer::Button::wheelDown);
        desk().pointer().release(Pointer::Button::wheelDown);
    }
    settle();
    restAt(*dock, {110, 50});
    moveTo({300, 50});
    EXPECT_TRUE(eventually([&] { return log.has("moved 300,50"); }));
    EXPECT_FALSE(log.has("in"));
    EXPECT_FALSE(log.has("out"));
}

TEST_F(QuietAreaTest, AGrabBySomebodyElseIsNoWayOutEither) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    const auto grab = xcb_grab_pointer(client().get(), 0, client().root(), 0, XCB_GRAB_MODE_ASYNC,
                                       XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    desktop::Owned<xcb_grab_pointer_reply_t> granted{
        xcb_grab_pointer_reply(client().get(), grab, nullptr)};
    ASSERT_EQ(granted->status, XCB_GRAB_STATUS_SUCCESS);
    EXPECT_TRUE(eventually([&] { return areas().empty(); }));
    EXPECT_FALSE(log.has("out"));

    // No event is sent for this move.
    desk().pointer().moveTo({5, 5});
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
    xcb_ungrab_pointer(client().get(), XCB_CURRENT_TIME);
    client().sync();
}

TEST_F(QuietAreaTest, AWindowThatComesOverOneTakesThePointerAway) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    const auto place = pixelAt("main", {90, 40});
    const auto menu = client().createWindow({place.x, place.y, 60, 30}, 0);
    constexpr std::uint32_t unmanaged = 1;
    xcb_change_window_attributes(client().get(), menu, XCB_CW_OVERRIDE_REDIRECT, &unmanaged);
    client().map(menu);
    client().sync();
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
    client().destroy(menu);
    client().sync();
    EXPECT_TRUE(eventually([&] { return log.has("in"); }));
}

TEST_F(QuietAreaTest, NewOnesCountFromWhereThePointerIs) {
    const auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    moveTo({150, 50});
    settle();
    EXPECT_FALSE(log.has("moved 150,50"));
    Scene scene = dividedScene();
    scene.hoverAreas = {{0, 26, 120, 58}};
    dock->present(scene);
    EXPECT_TRUE(eventually([&] { return log.has("moved 150,50") && areas().size() == 3; }));

    dock->present(dockScene());
    EXPECT_TRUE(eventually([] { return areas().empty(); }));
    moveTo({160, 50});
    EXPECT_TRUE(eventually([&] { return log.has("moved 160,50"); }));
}

TEST_F(QuietAreaTest, LieOnThePixelsThatPointToThem) {
    const auto dock = showDividedDock("dense");
    Scene scene = dividedScene();
    scene.hoverAreas = {{0, 26, 50.25, 58}, {50.25, 26, 100, 58}, {300, 26, 200, 58}};
    dock->present(scene);
    comeTo({20, 50}, "dense");
    EXPECT_TRUE(eventually([] { return areas("dense").size() == 5; }));
    EXPECT_EQ(areas("dense"), (std::vector<PixelRect>{{0, 52, 101, 116},
                                                      {101, 52, 200, 116},
                                                      {600, 52, 200, 116},
                                                      {0, 0, 800, 52},
                                                      {301, 52, 299, 116}}));
}

TEST_F(QuietAreaTest, GoWithTheWindow) {
    auto dock = showDividedDock();
    restAt(*dock, {100, 50});
    dock->orderOut();
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
    dock->orderFrontRegardless();
    EXPECT_TRUE(eventually([&] { return log.has("in"); }));
    restAt(*dock, {110, 50});
    dock.reset();
    EXPECT_TRUE(eventually([] { return windowOf("main") == XCB_NONE; }));
}

}
}
