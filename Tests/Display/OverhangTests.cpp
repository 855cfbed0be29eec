/// Drawing beyond a dock's frame: the window has room for it, and where nothing is drawn the
/// pointer passes through.
#include "Display/WindowTest.hpp"

#include <QCoreApplication>

namespace vireline {
namespace {

using desktop::PixelRect;
using desktop::Pointer;
using test::EventLog;

class OverhangTest : public test::WindowTest {
protected:
    static PixelRect frameOf(const std::string& monitor) {
        return client().frame(windowOf(monitor)).value_or(PixelRect{});
    }
    static bool comesToBe(const std::string& monitor, const PixelRect& frame) {
        return eventually([&] { return frameOf(monitor) == frame; });
    }

    /// A dock of 58 × 200 points at the left of "main", with a strip 78 points thick, in a window
    /// 90 points thick.
    std::unique_ptr<PanelWindow> showLargeDock() {
        auto dock = panels.makePanel(idOf("main"), frame(), log);
        dock->setOverhang({.right = 32});
        dock->setFrame(frame(), false);
        dock->setHostedFrame({0, 0, 58, 200});
        Scene scene;
        scene.nodes.push_back(
            {.id = {NodeID::Part::strip}, .frame = {0, 0, 78, 200}, .content = GlassNode{18}});
        scene.inputRegion = Rect{0, 0, 78, 200};
        dock->present(scene);
        dock->orderFrontRegardless();
        EXPECT_TRUE(eventually([&] { return client().isViewable(windowOf("main")); }));
        settle();
        return dock;
    }
    [[nodiscard]] Rect frame() const {
        const Rect display = screen("main").frame;
        return {display.minX() + 4, display.midY() - 100, 58, 200};
    }
    /// A pixel of the screen at this distance from the window's left edge, vertically centred.
    static desktop::PixelPoint at(int x) {
        const PixelRect window = frameOf("main");
        return {window.x + x, window.center().y};
    }

    EventLog log;
};

TEST_F(OverhangTest, TheWindowIsLargerThanTheFrame) {
    for (const auto& [monitor, scale] : {std::pair{"main", 1}, std::pair{"dense", 2}}) {
        const auto dock = showDock(monitor, log);
        const PixelRect planned = frameOf(monitor);
        const Rect display = screen(monitor).frame;
        dock->setOverhang({.left = 1, .top = 20, .right = 3, .bottom = 2});
        dock->setFrame({display.midX() - 200, display.minY() + 4, 400, 84}, false);
        EXPECT_TRUE(comesToBe(monitor, {planned.x - scale, planned.y - 20 * scale,
                                        planned.width + 4 * scale, planned.height + 22 * scale}))
            << frameOf(monitor);
        settle();

        desk().pointer().moveTo({planned.x + 100 * scale, planned.y + 40 * scale});
        EXPECT_TRUE(eventually([&] { return log.has("moved 100,40"); })) << monitor;
        desk().pointer().moveTo({5, 5});
        EXPECT_TRUE(eventually([&] { return log.has("out"); }));
        log.words.clear();
    }
}

TEST_F(OverhangTest, ShowsWhatIsDrawnThere) {
    const auto dock = showLargeDock();
    ASSERT_EQ(frameOf("main").width, 90);
    const auto inside = desk().pixel(at(40));
    const auto beyond = desk().pixel(at(150));
    ASSERT_FALSE(inside == beyond);
    EXPECT_EQ(desk().pixel(at(70)), inside);
    EXPECT_EQ(desk().pixel(at(80)), beyond);
}

TEST_F(OverhangTest, TakesThePointerWhereSomethingIsDrawnAndNowhereElse) {
    const auto dock = showLargeDock();
    desk().pointer().moveTo(at(85));
    settle();
    EXPECT_EQ(log.words, std::vector<std::string>{});
    EXPECT_NE(client().windowAt(at(85)), windowOf("main"));

    desk().pointer().moveTo(at(70));
    EXPECT_TRUE(eventually([&] { return log.has("moved 70,100"); }));
    desk().pointer().click(at(70));
    EXPECT_TRUE(eventually([&] { return log.has("released 70,100"); }));
    EXPECT_FALSE(log.has("out"));

    desk().pointer().moveTo(at(85));
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
}

TEST_F(OverhangTest, WithoutARegionOnlyTheFrameTakesThePointer) {
    const auto dock = showLargeDock();
    dock->present(Scene{});
    settle();
    desk().pointer().moveTo(at(60));
    settle();
    EXPECT_FALSE(log.has("in"));
}

TEST_F(OverhangTest, StaysUntilAMovementHasEnded) {
    const auto dock = showLargeDock();
    const PixelRect planned = frameOf("main");
    const Rect sliver{frame().x - 4, frame().y, 4, 200};
    dock->setFrame({sliver.x, sliver.y, 62, 200}, false);
    dock->setHostedFrame({4, 0, 58, 200});
    const PixelRect open{planned.x - 4, planned.y, 94, 200};
    ASSERT_TRUE(comesToBe("main", open)) << frameOf("main");
    settle();
    dock->setOverhang({});
    dock->setFrame(sliver, true);
    dock->setHostedFrame({0, 0, 58, 200});
    // Requesting a frame means that the animation continues.
    dock->requestFrame();
    QCoreApplication::sendPostedEvents();
    client().sync();
    EXPECT_EQ(frameOf("main"), open);
    EXPECT_TRUE(comesToBe("main", {open.x, open.y, 4, 200})) << frameOf("main");
}

}
}
