#include "Display/PanelWindowTest.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <xcb/shape.h>

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

TEST_F(PanelWindowTest, LiesOnThePlannedPixelsOfEveryDisplay) {
    EventLog other;
    const auto main = showDock("main", log);
    const auto left = showDock("left", other);
    const auto dense = showDock("dense", other);
    EXPECT_EQ(frameOf("main"), (PixelRect{1720, 1012, 400, 84}));
    EXPECT_EQ(frameOf("left"), (PixelRect{440, 812, 400, 84}));
    EXPECT_EQ(frameOf("dense"), (PixelRect{2560 + 768 - 400, 1200 - 8 - 168, 800, 168}));
}

TEST_F(PanelWindowTest, FollowsANewFrameToOddPixels) {
    const auto dock = showDock("dense", log);
    const Rect display = screen("dense").frame;
    dock->setFrame({display.minX() + 10.5, display.minY() + 4, 300.5, 84.5}, false);
    EXPECT_TRUE(eventually([&] { return frameOf("dense") == PixelRect{2581, 1023, 601, 169}; }));
}

TEST_F(PanelWindowTest, TellsTheWindowManagerThatItIsADock) {
    const auto dock = showDock("main", log);
    const auto window = windowOf("main");
    EXPECT_TRUE(hasAtom(window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"));
    EXPECT_FALSE(hasAtom(window, "_NET_WM_STATE", "_NET_WM_STATE_ABOVE"))
        << "some window managers put a dock that asks for it over full-screen windows";
    EXPECT_TRUE(hasAtom(window, "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_TRUE(hasAtom(window, "_NET_WM_STATE", "_NET_WM_STATE_SKIP_PAGER"));
    EXPECT_EQ(client().items(window, "_NET_WM_DESKTOP"), (std::vector<std::uint32_t>{0xffffffff}));
    EXPECT_EQ(client().text(window, "WM_CLASS"), std::string("vireline\0Vireline\0", 18));
    EXPECT_FALSE(client().hasProperty(window, "_NET_WM_STRUT"));
    EXPECT_FALSE(client().hasProperty(window, "_NET_WM_STRUT_PARTIAL"));
    EXPECT_EQ(client().depth(window), 32);
}

TEST_F(PanelWindowTest, GoesBackWhereItBelongs) {
    const auto dock = showDock("main", log);
    const PixelRect planned = frameOf("main");
    const std::uint32_t x = 1300;
    xcb_configure_window(client().get(), windowOf("main"), XCB_CONFIG_WINDOW_X, &x);
    client().sync();
    EXPECT_TRUE(eventually([&] {
        settle();
        return frameOf("main") == planned;
    }));
}

TEST_F(PanelWindowTest, StaysAboveWhenAnotherWindowManagerComes) {
    const auto dock = showDock("main", log);
    desk().stopWindowManager();
    desk().startWindowManager();
    EXPECT_TRUE(eventually(
        [&] { return hasAtom(windowOf("main"), "_NET_WM_STATE", "_NET_WM_STATE_SKIP_PAGER"); }));
    EXPECT_EQ(frameOf("main"), (PixelRect{1720, 1012, 400, 84}));
    const auto editor = client().createWindow({1500, 600, 700, 480}, 0);
    client().map(editor);
    client().sync();
    EXPECT_TRUE(eventually([&] { return client().activeWindow() == editor; }));
    EXPECT_TRUE(desk().docks().isAbove(windowOf("main"), editor));
    client().destroy(editor);
    client().sync();
}

class PanelWindowInputTest : public PanelWindowTest {
protected:
    void watch(xcb_window_t window) {
        window_ = window;
        xcb_shape_select_input(client().get(), window, 1);
        client().sync();
        static_cast<void>(extents());
    }

    /// The extents of each input region that the window has been given since the last call.
    [[nodiscard]] std::vector<PixelRect> extents() const {
        const auto* shape = xcb_get_extension_data(client().get(), &xcb_shape_id);
        std::vector<PixelRect> extents;
        while (const auto event = client().pollEvent()) {
            const auto& notify = x11::as<xcb_shape_notify_event_t>(*event);
            if (x11::eventType(*event) == shape->first_event && notify.affected_window == window_ &&
                notify.shape_kind == XCB_SHAPE_SK_INPUT)
                extents.push_back({notify.extents_x, notify.extents_y, notify.extents_width,
                                   notify.extents_height});
        }
        return extents;
    }

private:
    xcb_window_t window_ = XCB_NONE;
};

TEST_F(PanelWindowInputTest, IsToldToEveryWindowManagerAgain) {
    const auto dock = showDock("main", log);
    watch(windowOf("main"));
    const auto isTold = [&] { return !extents().empty(); };
    desk().stopWindowManager();
    EXPECT_TRUE(eventually(isTold)) << "it went back to the root window";
    desk().startWindowManager();
    EXPECT_TRUE(eventually(isTold)) << "it got a frame";
}

// A click at the moment of its return must not fall through the dock.
TEST_F(PanelWindowInputTest, AlwaysCoversThePlannedPlaceWhenTheWindowIsMovedAwayAndReturns) {
    const auto dock = showDock("main", log);
    const PixelRect planned = frameOf("main");
    watch(windowOf("main"));
    for (const int offset : {-100, -1000}) {
        const auto x = static_cast<std::uint32_t>(planned.x + offset);
        xcb_configure_window(client().get(), windowOf("main"), XCB_CONFIG_WINDOW_X, &x);
        client().sync();
        EXPECT_TRUE(eventually([&] {
            settle();
            return frameOf("main") == planned;
        }));
        for (const auto& region : extents()) {
            EXPECT_LE(region.x, 0) << region;
            EXPECT_GE(region.right(), planned.width) << region;
        }
    }
}

TEST_F(PanelWindowTest, MayComeBeforeTheWindowManager) {
    desk().stopWindowManager();
    const auto dock = showDock("main", log);
    desk().startWindowManager();
    const auto managed = [&] {
        const auto windows = client().managedWindows();
        return std::ranges::find(windows, windowOf("main")) != windows.end();
    };
    EXPECT_TRUE(eventually(managed));
    EXPECT_TRUE(eventually(
        [&] { return hasAtom(windowOf("main"), "_NET_WM_STATE", "_NET_WM_STATE_SKIP_PAGER"); }));
    EXPECT_EQ(frameOf("main"), (PixelRect{1720, 1012, 400, 84}));
}

TEST_F(PanelWindowTest, HasAnOutlineInsteadOfABlackBoxWithoutACompositor) {
    const auto dock = showDock("main", log);
    settle();
    const PixelRect frame = frameOf("main");
    EXPECT_EQ(desk().pixel({frame.x + 200, frame.y + 10}),
              desk().pixel({frame.x + 200, frame.y - 50}))
        << "the label zone shows what lies below";
    EXPECT_EQ(desk().pixel({frame.x + 1, frame.y + 27}),
              desk().pixel({frame.x + 200, frame.y - 50}))
        << "so does the corner";
    const auto glass = desk().pixel({frame.x + 200, frame.y + 55});
    EXPECT_GT(glass.red, 200);
    EXPECT_GT(glass.blue, 200);
}

TEST_F(PanelWindowTest, LosesItsOutlineUnderACompositorAndAsksItToBlur) {
    const auto dock = showDock("main", log);
    // The dock's bounding shape. It must have one, because compositors may draw shadows around
    // windows without.
    const auto shape = [&]() -> std::optional<PixelRect> {
        const auto reply =
            desktop::Owned<xcb_shape_query_extents_reply_t>{xcb_shape_query_extents_reply(
                client().get(), xcb_shape_query_extents(client().get(), windowOf("main")),
                nullptr)};
        if (!reply || reply->bounding_shaped == 0)
            return std::nullopt;
        return PixelRect{reply->bounding_shape_extents_x, reply->bounding_shape_extents_y,
                         reply->bounding_shape_extents_width, reply->bounding_shape_extents_height};
    };
    const PixelRect whole{0, 0, 400, 84};
    const auto isShaped = [&] { return shape() && shape() != whole; };
    EXPECT_TRUE(eventually(isShaped));

    auto compositor = std::make_unique<Compositor>();
    EXPECT_TRUE(eventually([&] { return shape() == whole; }));
    const Rect display = screen("main").frame;
    dock->setFrame({display.midX() - 250, display.minY() + 4, 500, 84}, false);
    dock->setHostedFrame({0, 0, 500, 84});
    EXPECT_TRUE(eventually([&] { return shape() == PixelRect{0, 0, 500, 84}; }));
    const char* const blur = "_KDE_NET_WM_BLUR_BEHIND_REGION";
    EXPECT_FALSE(client().hasProperty(windowOf("main"), blur));

    client().setItems(client().root(), blur, XCB_ATOM_CARDINAL, {0});
    client().sync();
    EXPECT_TRUE(eventually([&] { return client().hasProperty(windowOf("main"), blur); }));

    compositor.reset();
    xcb_delete_property(client().get(), client().root(), client().atom(blur));
    client().sync();
    EXPECT_TRUE(
        eventually([&] { return isShaped() && !client().hasProperty(windowOf("main"), blur); }));
}

TEST_F(PanelWindowTest, PaintsANewScene) {
    const auto dock = showDock("main", log);
    const auto middle = [&] { return desk().pixel(pixelAt("main", {200, 55})); };
    const auto before = middle();
    Scene scene = dockScene();
    scene.nodes.push_back(
        {.id = {NodeID::Part::handle}, .frame = {150, 50, 100, 10}, .content = HandleNode{}});
    dock->present(scene);
    EXPECT_TRUE(eventually([&] { return middle().red < 60; }));
    dock->present(dockScene());
    EXPECT_TRUE(eventually([&] { return middle() == before; }));
}

TEST_F(PanelWindowTest, RestoresAllThatAnotherWindowLeavesBehind) {
    const auto dock = showDock("main", log);
    settle();
    const PixelRect frame = frameOf("main");
    const auto pixels = [&] {
        std::vector<desktop::Colour> found;
        for (const int x : {60, 160, 260, 360})
            found.push_back(desk().pixel({frame.x + x, frame.y + 55}));
        return found;
    };
    const auto before = pixels();

    // Four expose events are sent, one for each part.
    const auto cover = client().createWindow(frame, 0x00ff0000);
    const std::array<xcb_rectangle_t, 4> pieces{
        {{50, 50, 20, 10}, {150, 52, 20, 10}, {250, 48, 20, 10}, {350, 54, 20, 10}}};
    const std::uint32_t yes = 1;
    xcb_change_window_attributes(client().get(), cover, XCB_CW_OVERRIDE_REDIRECT, &yes);
    xcb_shape_rectangles(client().get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                         XCB_CLIP_ORDERING_UNSORTED, cover, 0, 0, pieces.size(), pieces.data());
    client().map(cover);
    client().sync();
    EXPECT_TRUE(eventually([&] { return pixels().back().green < 60; }));
    client().destroy(cover);
    client().sync();

    EXPECT_TRUE(eventually([&] { return pixels() == before; }));
}

TEST_F(PanelWindowTest, GoesWithItsObject) {
    auto dock = showDock("main", log);
    dock->orderOut();
    EXPECT_TRUE(eventually([&] { return !client().isViewable(windowOf("main")); }));
    dock->orderFrontRegardless();
    EXPECT_TRUE(eventually([&] { return client().isViewable(windowOf("main")); }));
    dock.reset();
    EXPECT_TRUE(eventually([&] { return windowOf("main") == XCB_NONE; }));
}

TEST_F(PanelWindowTest, SurvivesTheLossOfItsDisplay) {
    const auto dock = showDock("dense", log);
    desk().setMonitors({threeMonitors()[0], threeMonitors()[1]});
    EXPECT_TRUE(eventually([&] { return screens.screens().size() == 2; }));
    settle();
    desk().setMonitors(threeMonitors());
    EXPECT_TRUE(eventually([&] {
        return screens.screens().size() == 3 && frameOf("dense") == PixelRect{2928, 1024, 800, 168};
    }));
    moveTo("dense", {100, 40});
    EXPECT_TRUE(eventually([&] { return log.has("moved 100,40"); }));
}

}
}
