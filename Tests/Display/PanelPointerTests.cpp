#include "Display/WindowTest.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>

namespace vireline {
namespace {

using desktop::Pointer;
using test::EventLog;

/// A dock with a log of its pointer events.
class PanelPointerTest : public test::WindowTest {
protected:
    /// How often the dock is told of a pointer that moves along it, compared with once per 33 ms.
    double looksPerPause() {
        using std::chrono::steady_clock;
        comeTo({100, 50});
        const auto start = steady_clock::now();
        for (int step = 1; steady_clock::now() < start + std::chrono::milliseconds{400}; ++step) {
            moveTo({100.0 + step % 90, 50});
            settle();
        }
        moveTo({200, 50});
        const auto looks = std::ranges::count_if(
            log.words, [](const auto& word) { return word.starts_with("moved "); });
        const std::chrono::duration<double, std::milli> time = steady_clock::now() - start;
        EXPECT_TRUE(eventually([&] { return log.has("moved 200,50"); }));
        // A look at either end of the time does not stand for a whole pause.
        return static_cast<double>(looks - 2) * 33 / time.count();
    }

    void moveTo(Point view) { desk().pointer().moveTo(pixelAt("main", view)); }

    /// Moves the pointer there, and returns once the dock knows.
    void comeTo(Point view) {
        // In two steps, because the entry event alone does not start sampling.
        moveTo({view.x + 1, view.y});
        settle();
        moveTo(view);
        const auto word = "moved " + std::to_string(static_cast<int>(view.x)) + ',' +
                          std::to_string(static_cast<int>(view.y));
        EXPECT_TRUE(eventually([&] { return log.has(word); }));
        log.words.clear();
    }

    EventLog log;
    std::unique_ptr<PanelWindow> dock = showDock("main", log);
};

TEST_F(PanelPointerTest, SeesThePointerLeaveAndComeBack) {
    comeTo({100, 50});
    desk().pointer().moveTo({5, 5});
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
    EXPECT_TRUE(log.has("exited"));
    moveTo({300, 50});
    EXPECT_TRUE(eventually([&] { return log.has("in") && log.has("moved 300,50"); }));
}

TEST_F(PanelPointerTest, LooksLessOftenThanPerFrameWhileMovementsChangeNothing) {
    // The dock of this test never requests a frame.
    EXPECT_LE(looksPerPause(), 1);
}

TEST_F(PanelPointerTest, LooksLessOftenThanPerFrameWhileMovementsMoveNothing) {
    // A changing label requests frames like this.
    log.onPointer = [&] { dock->requestFrame(); };
    EXPECT_LE(looksPerPause(), 1);
}

TEST_F(PanelPointerTest, LooksInEveryFrameWhileItsPictureFollowsThePointer) {
    Scene scene = dockScene();
    scene.followsPointer = true;
    dock->present(scene);
    log.onPointer = [&] { dock->requestFrame(); };
    // A busy machine may miss frames.
    EXPECT_TRUE(eventually([&] { return looksPerPause() > 1.2; }));
}

TEST_F(PanelPointerTest, ReportsClicks) {
    comeTo({100, 50});
    desk().pointer().click(pixelAt("main", {120, 50}));
    EXPECT_TRUE(eventually([&] { return log.has("released 120,50"); }));
    EXPECT_TRUE(log.has("pressed 120,50"));
    comeTo({110, 50});
    desk().pointer().click(pixelAt("main", {110, 50}), Pointer::Button::secondary);
    EXPECT_TRUE(eventually([&] { return log.has("secondary 110,50"); }));
    for (const char* word : {"out", "exited", "cancelled"})
        EXPECT_FALSE(log.has(word)) << word;
}

TEST_F(PanelPointerTest, FollowsADragOutOfTheWindow) {
    comeTo({100, 50});
    desk().pointer().press(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("pressed 100,50"); }));
    for (const double x : {120.0, 160.0}) {
        moveTo({x, 50});
        const auto word = "moved " + std::to_string(static_cast<int>(x)) + ",50";
        EXPECT_TRUE(eventually([&] { return log.has(word); })) << word;
    }
    moveTo({160, -100});
    EXPECT_TRUE(eventually([&] { return log.has("moved 160,-100"); }));
    desk().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("released 160,-100") && log.has("out"); }));
}

TEST_F(PanelPointerTest, DoesNotTakeTheWheelForALeave) {
    comeTo({100, 50});
    for (int notch = 0; notch < 3; ++notch) {
        desk().pointer().press(Pointer::Button::wheelDown);
        desk().pointer().release(Pointer::Button::wheelDown);
    }
    comeTo({300, 50});
    EXPECT_FALSE(log.has("in"));
    EXPECT_FALSE(log.has("out"));
}

TEST_F(PanelPointerTest, LosesThePointerToAWindowThatCoversIt) {
    comeTo({100, 50});
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

TEST_F(PanelPointerTest, LosesThePointerWithItsWindow) {
    comeTo({100, 50});
    dock->orderOut();
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
    dock->orderFrontRegardless();
    EXPECT_TRUE(eventually([&] { return log.has("in"); }));
    comeTo({110, 50});
    dock.reset();
    EXPECT_TRUE(eventually([] { return windowOf("main") == XCB_NONE; }));
}

}
}
