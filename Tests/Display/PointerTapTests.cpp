#include "Display/WindowTest.hpp"
#include "Pointer/XInputPointerTaps.hpp"

#include <chrono>
#include <thread>

namespace vireline {
namespace {

using desktop::PixelPoint;

/// Keeps the pointer out of the rows below `lowest`, on a tap that runs in this process.
class PointerTapTest : public test::WindowTest {
protected:
    static constexpr double lowest = 300;

    void SetUp() override {
        WindowTest::SetUp();
        auto created = taps_.create(
            [](Point at) {
                return at.y > lowest ? std::optional{Point{at.x, lowest}} : std::nullopt;
            },
            [](PointerTapEvent) {});
        ASSERT_TRUE(created);
        tap = *std::move(created);
        tap->setEnabled(true);
        // The server may take this client's next request before the tap's.
        ASSERT_TRUE(eventually([] {
            const bool isActive = isAt({100, 300});
            if (!isActive)
                moveTo({100, 350});
            return isActive;
        }));
    }

    static void moveTo(PixelPoint onMain) { desk().pointer().moveTo(onScreen(onMain)); }

    static bool isAt(PixelPoint onMain) { return desk().pointer().position() == onScreen(onMain); }

    static bool comesTo(PixelPoint onMain) {
        return eventually([onMain] { return isAt(onMain); });
    }

    /// Keeps the server from replying to other clients for a moment. It ends on a thread of its
    /// own, since this process has other clients, for whose replies it waits.
    static std::jthread holdServer() {
        xcb_grab_server(client().get());
        client().sync();
        return std::jthread{[x = client().get()] {
            std::this_thread::sleep_for(std::chrono::milliseconds{200});
            xcb_ungrab_server(x);
            xcb_flush(x);
        }};
    }

    /// What a rule has noticed.
    bool hasMovedOn = false;
    bool calledAfterwards = false;
    std::unique_ptr<PointerTap> tap;

private:
    /// The pixel on the screen at a point of the main display, as the rule gets it.
    static PixelPoint onScreen(PixelPoint onMain) {
        const auto frame = desk().monitor("main").frame;
        return {frame.x + onMain.x, frame.y + onMain.y};
    }

    x11::XInputPointerTaps taps_{screens};
};

TEST_F(PointerTapTest, MovesAPointerToWhereTheRuleSays) {
    moveTo({400, 350});
    EXPECT_TRUE(comesTo({400, 300}));
}

TEST_F(PointerTapTest, LeavesAPointerAloneWhereTheRuleHasNoOtherPlace) {
    moveTo({400, 350});
    ASSERT_TRUE(comesTo({400, 300}));
    moveTo({410, 250});
    settle();
    EXPECT_TRUE(isAt({410, 250}));
}

TEST_F(PointerTapTest, FollowsAServerThatRepliesLate) {
    const auto held = holdServer();
    moveTo({400, 350});
    EXPECT_TRUE(comesTo({400, 300}));
}

TEST_F(PointerTapTest, DoesNotPullBackAPointerThatHasMovedOn) {
    tap->setRule([this](Point at) -> std::optional<Point> {
        calledAfterwards = hasMovedOn;
        if (at.y <= lowest)
            return std::nullopt;
        moveTo({500, 250});
        hasMovedOn = true;
        return Point{at.x, lowest};
    });
    moveTo({400, 350});
    EXPECT_TRUE(eventually([this] { return calledAfterwards; }));
    EXPECT_TRUE(isAt({500, 250}));
}

TEST_F(PointerTapTest, LeavesThePointerAloneWhileItIsDisabled) {
    tap->setEnabled(false);
    moveTo({400, 350});
    settle();
    EXPECT_TRUE(isAt({400, 350}));
}

TEST_F(PointerTapTest, AppliesANewRuleToTheNextMove) {
    tap->setRule(
        [](Point at) { return at.y > 200 ? std::optional{Point{at.x, 200}} : std::nullopt; });
    moveTo({400, 350});
    EXPECT_TRUE(comesTo({400, 200}));
}

TEST_F(PointerTapTest, LetsThePointerGoOnceItIsGone) {
    tap.reset();
    moveTo({400, 350});
    settle();
    EXPECT_TRUE(isAt({400, 350}));
}

}
}
