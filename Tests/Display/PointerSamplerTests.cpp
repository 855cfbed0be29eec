#include "Connection/DrawingConnection.hpp"
#include "Display/WindowTest.hpp"
#include "Panels/Context/DesktopWatch.hpp"
#include "Panels/Context/PanelContext.hpp"
#include "Panels/Pointer/PointerSampler.hpp"

#include <algorithm>

namespace vireline {
namespace {

using desktop::Pointer;
using test::EventLog;

/// Moves the pointer over a dock, and checks what the dock reports and which events it selects.
class PointerSamplerTest : public test::WindowTest {
protected:
    void moveTo(Point view) { desk().pointer().moveTo(pixelAt("main", view)); }

    /// Whether motion events are selected.
    static bool hearsMovements() {
        const desktop::Owned<xcb_get_window_attributes_reply_t> reply{
            xcb_get_window_attributes_reply(
                client().get(), xcb_get_window_attributes(client().get(), windowOf("main")),
                nullptr)};
        return reply && (reply->all_event_masks & XCB_EVENT_MASK_POINTER_MOTION) != 0;
    }

    EventLog log;
};

TEST_F(PointerSamplerTest, StopsReceivingMovementsAfterTheFirst) {
    const auto dock = showDock("main", log);
    EXPECT_TRUE(hearsMovements());
    moveTo({100, 50});
    EXPECT_TRUE(eventually([&] { return log.has("moved 100,50") && !hearsMovements(); }));
}

TEST_F(PointerSamplerTest, TellsWhereThePointerCameToInTheEnd) {
    const auto dock = showDock("main", log);
    for (int i = 0; i < 300; ++i)
        moveTo({50.0 + i % 100, 50});
    moveTo({170, 60});
    EXPECT_TRUE(eventually([&] { return log.has("moved 170,60"); }));
}

TEST_F(PointerSamplerTest, ListensAgainOnceThePointerKeepsStill) {
    const auto dock = showDock("main", log);
    for (const int x : {100, 130, 160}) {
        moveTo({static_cast<double>(x), 50});
        EXPECT_TRUE(eventually([&] { return log.has("moved " + std::to_string(x) + ",50"); }));
        EXPECT_TRUE(eventually([] { return hearsMovements(); }));
    }
}

TEST_F(PointerSamplerTest, ListensAgainOnceThePointerHasLeft) {
    const auto dock = showDock("main", log);
    moveTo({100, 50});
    EXPECT_TRUE(eventually([] { return !hearsMovements(); }));
    desk().pointer().moveTo({5, 5});
    EXPECT_TRUE(eventually([&] { return log.has("out") && hearsMovements(); }));
}

TEST_F(PointerSamplerTest, FollowsADragThatBeganWhileItSampled) {
    const auto dock = showDock("main", log);
    moveTo({110, 50});
    EXPECT_TRUE(eventually([] { return !hearsMovements(); }));
    desk().pointer().press(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("pressed 110,50"); }));
    moveTo({140, -120});
    EXPECT_TRUE(eventually([&] { return log.has("moved 140,-120"); }));
    desk().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("released 140,-120"); }));
}

TEST_F(PointerSamplerTest, FollowsADragThatBeganAfterAPause) {
    const auto dock = showDock("main", log);
    moveTo({90, 50});
    EXPECT_TRUE(eventually([] { return !hearsMovements(); }));
    EXPECT_TRUE(eventually([] { return hearsMovements(); }));
    desk().pointer().press(Pointer::Button::primary);
    moveTo({140, -120});
    EXPECT_TRUE(eventually([&] { return log.has("moved 140,-120"); }));
    moveTo({150, -130});
    EXPECT_TRUE(eventually([&] { return log.has("moved 150,-130"); }));
    desk().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return log.has("released 150,-130"); }));
}

// The server's state is ahead of the events that the program has received.
TEST_F(PointerSamplerTest, TakesNoPlaceBehindAReleaseForADrag) {
    const auto dock = showDock("main", log);
    const x11::DrawingConnection drawing{connection};
    x11::DesktopWatch watch{connection};
    const x11::PanelContext context{connection, drawing, screens, watch, appearance};
    x11::PointerSampler sampler{context, windowOf("main")};
    moveTo({100, 50});
    desk().pointer().press(Pointer::Button::primary);
    EXPECT_EQ(sampler.sample(true), QPoint(100, 50));

    desk().pointer().release(Pointer::Button::primary);
    moveTo({160, 60});
    EXPECT_EQ(sampler.sample(true), std::nullopt);
    EXPECT_EQ(sampler.sample(false), QPoint(160, 60));
}

}
}
