#include "Display/PanelWindowTest.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <QCoreApplication>
#include <algorithm>
#include <array>

namespace vireline {
namespace {

using desktop::PixelRect;
using desktop::Pointer;
using test::EventLog;
using test::PanelWindowTest;
using Words = std::vector<std::string>;

// Behaviour: dock-panel-5
TEST_F(PanelWindowTest, NeverTakesTheFocus) {
    const auto editor = client().createWindow({1400, 400, 300, 300}, 0);
    client().map(editor);
    client().sync();
    ASSERT_TRUE(eventually([&] { return client().focusedWindow() == editor; }));
    const auto dock = showDock("main", log);
    desk().pointer().click(pixelAt("main", {200, 50}));
    EXPECT_TRUE(eventually([&] { return log.has("released 200,50"); }));
    // The window manager's answer comes behind all that it does about the click.
    const auto asking = client().createWindow({0, 0, 10, 10}, 0);
    client().sendToRoot(asking, "_NET_REQUEST_FRAME_EXTENTS", {});
    EXPECT_TRUE(eventually([&] { return client().hasProperty(asking, "_NET_FRAME_EXTENTS"); }));
    client().destroy(asking);
    EXPECT_EQ(client().activeWindow(), editor);
    EXPECT_EQ(client().focusedWindow(), editor);
    client().destroy(editor);
    client().sync();
}

TEST_F(PanelWindowTest, ReportsThePointerInTheViewsPoints) {
    for (const char* monitor : {"main", "dense"}) {
        EventLog events;
        const auto dock = showDock(monitor, events);
        moveTo(monitor, {100, 40});
        EXPECT_TRUE(eventually([&] { return events.has("moved 100,40"); })) << monitor;
        EXPECT_EQ(events.words.front(), "in");
        desk().pointer().press(Pointer::Button::primary);
        EXPECT_TRUE(eventually([&] { return events.has("pressed 100,40"); }));
        moveTo(monitor, {300, 60});
        EXPECT_TRUE(eventually([&] { return events.has("moved 300,60"); }));
        desk().pointer().release(Pointer::Button::primary);
        EXPECT_TRUE(eventually([&] { return events.has("released 300,60"); }));
        EXPECT_FALSE(events.has("out"));
        desk().pointer().moveTo({5, 5});
        EXPECT_TRUE(eventually([&] { return events.has("out"); }));
        EXPECT_TRUE(events.has("exited"));
    }
}

TEST_F(PanelWindowTest, LetsClicksBesideItsInputRegionThrough) {
    const Compositor compositor;
    const auto dock = showDock("main", log);
    moveTo("main", {200, 10});
    settle();
    EXPECT_EQ(log.words, Words{});
    moveTo("main", {200, 30});
    EXPECT_TRUE(eventually([&] { return log.has("in"); }));

    Scene scene = dockScene();
    scene.inputRegion.reset();
    dock->present(scene);
    moveTo("main", {200, 5});
    EXPECT_TRUE(eventually([&] { return log.has("moved 200,5"); }));
}

TEST_F(PanelWindowTest, KeepsThePointerWhileTheButtonIsHeldOutside) {
    const auto dock = showDock("main", log);
    moveTo("main", {100, 40});
    desk().pointer().press(Pointer::Button::primary);
    moveTo("main", {100, -200});
    EXPECT_TRUE(eventually([&] { return log.has("moved 100,-200"); }));
    EXPECT_FALSE(log.has("out"));
    desk().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
    const auto released = std::ranges::find(log.words, "released 100,-200");
    EXPECT_LT(released, std::ranges::find(log.words, "out"));
}

TEST_F(PanelWindowTest, FindsOutThatAReleaseWentElsewhere) {
    const auto dock = showDock("main", log);
    moveTo("main", {100, 40});
    desk().pointer().press(Pointer::Button::primary);
    moveTo("main", {100, -200});
    EXPECT_TRUE(eventually([&] { return log.has("moved 100,-200"); }));
    // The window loses the pointer that the press gave it, so it does not see the release.
    xcb_ungrab_pointer(connection.get(), XCB_CURRENT_TIME);
    connection.flush();
    settle();
    for (int look = 0; look < 3; ++look)
        dock->checkPress();
    EXPECT_FALSE(log.has("cancelled")) << "the button is still down";

    desk().pointer().release(Pointer::Button::primary);
    settle();
    EXPECT_FALSE(log.has("out"));
    dock->checkPress();
    EXPECT_FALSE(log.has("cancelled")) << "the release may be on its way";
    dock->checkPress();

    EXPECT_TRUE(log.has("cancelled"));
    EXPECT_TRUE(log.has("out"));
}

TEST_F(PanelWindowTest, FollowsAPressFromAMovingPointerOutOfTheWindow) {
    const auto dock = showDock("main", log);
    for (int x = 80; x < 100; x += 4)
        moveTo("main", {static_cast<double>(x), 40});
    EXPECT_TRUE(eventually([&] { return log.has("moved 96,40"); }));
    desk().pointer().press(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("pressed 96,40"); }));
    moveTo("main", {110, -100});
    EXPECT_TRUE(eventually([&] { return log.has("moved 110,-100"); }));
    moveTo("main", {120, -200});
    EXPECT_TRUE(eventually([&] { return log.has("moved 120,-200"); }));
    EXPECT_FALSE(log.has("out"));
    desk().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));

    // It gets no more events.
    log.words.clear();
    moveTo("main", {130, -250});
    settle();
    EXPECT_EQ(std::ranges::count(log.words, "in"), 0);
}

TEST_F(PanelWindowTest, FollowsAPressThatIsQuickerThanAFrame) {
    const auto dock = showDock("main", log);
    const auto isMovedAfterThePress = [&] {
        const auto pressed = std::ranges::find(log.words, "pressed 96,40");
        return std::find(pressed, log.words.end(), "moved 180,40") != log.words.end();
    };
    for (int round = 0; round < 10; ++round) {
        log.words.clear();
        moveTo("main", {90, 40});
        moveTo("main", {96, 40});
        EXPECT_TRUE(eventually([&] { return log.has("moved 96,40"); }));
        desk().pointer().press(Pointer::Button::primary);
        moveTo("main", {180, 40});
        EXPECT_TRUE(eventually(isMovedAfterThePress)) << round;
        desk().pointer().release(Pointer::Button::primary);
        EXPECT_TRUE(eventually([&] { return log.has("released 180,40"); }));
    }
}

TEST_F(PanelWindowTest, SeesThePointerLeaveDuringAnotherClientsGrab) {
    const auto dock = showDock("main", log);
    moveTo("main", {100, 40});
    EXPECT_TRUE(eventually([&] { return log.has("moved 100,40"); }));
    const auto grab = xcb_grab_pointer(client().get(), 0, client().root(), 0, XCB_GRAB_MODE_ASYNC,
                                       XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    desktop::Owned<xcb_grab_pointer_reply_t> granted{
        xcb_grab_pointer_reply(client().get(), grab, nullptr)};
    ASSERT_EQ(granted->status, XCB_GRAB_STATUS_SUCCESS);
    settle();
    EXPECT_FALSE(log.has("out"));

    // This movement is not reported to it.
    desk().pointer().moveTo({5, 5});
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
    xcb_ungrab_pointer(client().get(), XCB_CURRENT_TIME);
    client().sync();
}

TEST_F(PanelWindowTest, KeepsWhatIsOverItWhileTheWindowManagerMovesItsEdges) {
    const auto dock = showDock("main", log);
    Scene scene = dockScene();
    scene.inputRegion.reset();
    dock->present(scene);
    const PixelRect hidden{1720, 1096, 400, 4};
    const PixelRect shown{1720, 1012, 400, 88};
    const Rect display = screen("main").frame;
    const double x = display.midX() - 200;
    const auto hide = [&] {
        dock->setFrame({x, display.minY(), 400, 4}, false);
        dock->setHostedFrame({0, 0, 400, 84});
    };
    const auto show = [&] {
        dock->setFrame({x, display.minY(), 400, 88}, false);
        dock->setHostedFrame({0, 4, 400, 84});
    };
    hide();
    ASSERT_TRUE(eventually([&] { return frameOf("main") == hidden; }));
    settle();
    const auto isOver = [&] { return client().windowAt(hidden.center()) == windowOf("main"); };
    ASSERT_TRUE(eventually(isOver));

    // The program asks for its new place, and hears nothing yet of having got it.
    const auto isMovedTo = [&](const PixelRect& place) {
        QCoreApplication::sendPostedEvents();
        return desktop::eventually([&] { return frameOf("main") == place; });
    };
    show();
    EXPECT_TRUE(isMovedTo(shown));
    EXPECT_TRUE(isOver());
    settle();
    EXPECT_TRUE(isOver());

    hide();
    EXPECT_TRUE(isMovedTo(hidden));
    EXPECT_TRUE(isOver());
    settle();
    EXPECT_TRUE(isOver());
}

}
}
