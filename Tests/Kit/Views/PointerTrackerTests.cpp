#include "Views/Input/PointerTracker.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vireline {
namespace {

using Log = std::vector<std::string>;

/// Records what the tracker reports, one word each, with the position where it matters.
class Listener final : public PanelWindowListener {
public:
    void mouseEntered() override { log.emplace_back("in"); }
    void mouseExited() override { log.emplace_back("out"); }
    void frameDue() override {}
    void pointerEvent(const PointerEvent& event) override {
        const auto at = ' ' + std::to_string(static_cast<int>(event.position.x));
        switch (event.kind) {
        case PointerEvent::Kind::moved:
            log.push_back("moved" + at);
            break;
        case PointerEvent::Kind::exited:
            log.emplace_back("exited");
            break;
        case PointerEvent::Kind::pressed:
            log.push_back("pressed" + at);
            break;
        case PointerEvent::Kind::released:
            log.push_back("released" + at);
            if (onReleased)
                onReleased();
            break;
        case PointerEvent::Kind::secondaryPressed:
            log.push_back("secondary" + at);
            break;
        case PointerEvent::Kind::middlePressed:
            log.push_back("middle" + at);
            break;
        case PointerEvent::Kind::cancelled:
            log.emplace_back("cancelled");
            break;
        }
    }
    void dragEntered(const std::vector<std::string>& /*urls*/) override {}
    bool dragMoved(Point /*at*/) override { return false; }
    void dragExited() override {}
    bool dropped(Point /*at*/) override { return false; }

    /// What was reported since the last call.
    Log take() { return std::exchange(log, {}); }

    Log log;
    /// Called from within `released`.
    std::function<void()> onReleased;
};

constexpr PointerTracker::PointerState away{};
constexpr PointerTracker::PointerState awayWithButton{false, true, {}};

constexpr PointerTracker::PointerState here(Point position) {
    return {true, false, position};
}

class PointerTrackerTest : public testing::Test {
protected:
    PointerTrackerTest() { tracker.setViewArea({0, 0, 100, 50}); }

    void enter() {
        tracker.entered({10, 10});
        listener.take();
    }

    Listener listener;
    PointerTracker tracker{listener};
};

TEST_F(PointerTrackerTest, EntersAtOnceWhereThePointerIs) {
    tracker.entered({10, 10});
    EXPECT_EQ(listener.take(), (Log{"in", "moved 10"}));
}

TEST_F(PointerTrackerTest, TreatsAMoveWithoutAnEntryAsEntering) {
    tracker.moved({20, 10});
    EXPECT_EQ(listener.take(), (Log{"in", "moved 20"}));
}

TEST_F(PointerTrackerTest, IgnoresAPointerThatIsGrabbedElsewhere) {
    tracker.entered({10, 10}, true);
    EXPECT_EQ(listener.take(), Log{});
    tracker.entered({20, 10});
    EXPECT_EQ(listener.take(), (Log{"in", "moved 20"}));
}

TEST_F(PointerTrackerTest, TreatsAPressWithoutAnEntryAsEntering) {
    tracker.entered({10, 10}, true);
    tracker.pressed({20, 10});
    EXPECT_EQ(listener.take(), (Log{"in", "pressed 20"}));
}

TEST_F(PointerTrackerTest, LeavesTheViewBeforeTheWindow) {
    enter();
    tracker.left(away);
    EXPECT_EQ(listener.take(), (Log{"exited", "out"}));
}

TEST_F(PointerTrackerTest, LeavesTheViewAloneInTheGapBesideIt) {
    enter();
    tracker.moved({10, 52});
    tracker.moved({11, 52});
    EXPECT_EQ(listener.take(), (Log{"exited"}));
    tracker.moved({12, 49});
    EXPECT_EQ(listener.take(), (Log{"moved 12"}));
}

TEST_F(PointerTrackerTest, IgnoresPressesBesideTheView) {
    enter();
    tracker.moved({10, 52});
    listener.take();
    tracker.pressed({10, 52});
    tracker.secondaryPressed({10, 52});
    tracker.middlePressed({10, 52});
    tracker.released({10, 52}, true);
    EXPECT_EQ(listener.take(), Log{});
}

TEST_F(PointerTrackerTest, KeepsThePointerWhileAButtonIsHeld) {
    enter();
    tracker.pressed({10, 10});
    tracker.moved({400, 10});
    tracker.left(awayWithButton);
    tracker.moved({500, 10});
    EXPECT_EQ(listener.take(), (Log{"pressed 10", "moved 400", "moved 500"}));
    tracker.released({500, 10}, false);
    EXPECT_EQ(listener.take(), (Log{"released 500", "exited", "out"}));
}

TEST_F(PointerTrackerTest, StaysWhenTheButtonIsReleasedInside) {
    enter();
    tracker.pressed({10, 10});
    tracker.left(awayWithButton);
    tracker.entered({30, 10});
    tracker.released({30, 10}, true);
    EXPECT_EQ(listener.take(), (Log{"pressed 10", "moved 30", "released 30", "moved 30"}));
}

TEST_F(PointerTrackerTest, CancelsAPressWhenThePointerIsTaken) {
    enter();
    tracker.pressed({10, 10});
    listener.take();
    tracker.left(away);
    EXPECT_EQ(listener.take(), (Log{"cancelled", "exited", "out"}));
    tracker.released({10, 10}, true);
    EXPECT_EQ(listener.take(), Log{});
}

TEST_F(PointerTrackerTest, DoubtsALeaveThatTheServerDoesNotConfirm) {
    enter();
    tracker.left(here({}));
    EXPECT_EQ(listener.take(), Log{});
    EXPECT_TRUE(tracker.isPointerGrabbed());
    tracker.entered({12, 10});
    EXPECT_EQ(listener.take(), (Log{"moved 12"}));
    EXPECT_FALSE(tracker.isPointerGrabbed());
}

TEST_F(PointerTrackerTest, LeavesOnceTheDoubtIsOver) {
    enter();
    tracker.left(here({}));
    tracker.left(away);
    EXPECT_EQ(listener.take(), (Log{"exited", "out"}));
    EXPECT_FALSE(tracker.isPointerGrabbed());
}

TEST_F(PointerTrackerTest, StaysSilentWhileItsMenuHoldsThePointer) {
    enter();
    tracker.secondaryPressed({10, 10});
    tracker.menuOpened();
    listener.take();
    tracker.left(away);
    tracker.entered({60, 10});
    tracker.moved({70, 10});
    tracker.pressed({70, 10});
    EXPECT_EQ(listener.take(), Log{});
}

TEST_F(PointerTrackerTest, LooksAroundWhenItsMenuCloses) {
    enter();
    tracker.menuOpened();
    EXPECT_TRUE(tracker.hasMenu());
    tracker.menuClosed(here({40, 10}));
    EXPECT_FALSE(tracker.hasMenu());
    EXPECT_EQ(listener.take(), (Log{"moved 40"}));
    tracker.menuOpened();
    tracker.menuClosed(away);
    EXPECT_EQ(listener.take(), (Log{"exited", "out"}));
}

TEST_F(PointerTrackerTest, LeavesWhenTheWindowGoes) {
    enter();
    tracker.pressed({10, 10});
    listener.take();
    tracker.hidden();
    EXPECT_EQ(listener.take(), (Log{"cancelled", "exited", "out"}));
    tracker.hidden();
    EXPECT_EQ(listener.take(), Log{});
}

TEST_F(PointerTrackerTest, AMenuHoldsWhateverThePointerDoesMeanwhile) {
    tracker.entered({10, 10});
    tracker.menuOpened();
    listener.take();

    tracker.entered({20, 10});
    tracker.moved({20, 10});
    tracker.pressed({20, 10});
    tracker.secondaryPressed({20, 10});
    tracker.released({20, 10}, true);
    tracker.left(away);

    EXPECT_EQ(listener.take(), Log{});
}

TEST_F(PointerTrackerTest, AHeldButtonIsNotPressedOnceMore) {
    tracker.entered({10, 10});
    tracker.pressed({10, 10});
    EXPECT_TRUE(tracker.isPressed());
    listener.take();

    tracker.pressed({12, 10});
    tracker.secondaryPressed({12, 10});

    EXPECT_EQ(listener.take(), Log{});
    tracker.released({12, 10}, true);
    EXPECT_FALSE(tracker.isPressed());
}

TEST_F(PointerTrackerTest, ASecondaryPressBesideTheViewIsIgnored) {
    tracker.entered({10, 10});
    listener.take();

    tracker.secondaryPressed({10, -5});
    EXPECT_EQ(listener.take(), Log{});
    tracker.secondaryPressed({10, 10});
    EXPECT_EQ(listener.take(), Log{"secondary 10"});
}

TEST_F(PointerTrackerTest, AReleaseThatOpensAMenuIsTheLastThatIsHeard) {
    listener.onReleased = [this] { tracker.menuOpened(); };
    enter();
    tracker.pressed({10, 10});
    listener.take();

    tracker.released({10, 10}, false);

    EXPECT_EQ(listener.take(), Log{"released 10"});
}

TEST_F(PointerTrackerTest, APointerThatComesBackWithOurButtonIsStillOurs) {
    enter();
    tracker.pressed({10, 10});
    tracker.left(awayWithButton);
    listener.take();

    tracker.entered({20, 10}, true);

    EXPECT_EQ(listener.take(), Log{"moved 20"});
}

TEST_F(PointerTrackerTest, TheSecondLookThatFindsTheButtonUpEndsAPress) {
    enter();
    tracker.pressed({10, 10});
    tracker.left(awayWithButton);
    listener.take();

    tracker.polled(awayWithButton);
    tracker.polled(away);
    EXPECT_EQ(listener.take(), Log{});
    tracker.polled(away);

    EXPECT_EQ(listener.take(), (Log{"cancelled", "exited", "out"}));
    EXPECT_FALSE(tracker.isPressed());
}

TEST_F(PointerTrackerTest, ALookThatFindsTheButtonDownAgainStartsOver) {
    enter();
    tracker.pressed({10, 10});
    listener.take();

    tracker.polled(away);
    tracker.polled(awayWithButton);
    tracker.polled(away);
    EXPECT_TRUE(tracker.isPressed());
    tracker.released({10, 10}, true);
    tracker.pressed({10, 10});
    tracker.polled(away);

    EXPECT_TRUE(tracker.isPressed());
}

TEST_F(PointerTrackerTest, APressThatIsLostOverTheWindowLeavesThePointerThere) {
    enter();
    tracker.pressed({10, 10});
    listener.take();

    tracker.polled(here({20, 10}));
    tracker.polled(here({20, 10}));

    EXPECT_EQ(listener.take(), Log{"cancelled"});
    tracker.moved({30, 10});
    EXPECT_EQ(listener.take(), Log{"moved 30"});
}

TEST_F(PointerTrackerTest, PollsChangeNothingWithoutAPressOrAGrab) {
    enter();

    tracker.polled(away);
    tracker.polled(away);

    EXPECT_EQ(listener.take(), Log{});
}

TEST_F(PointerTrackerTest, LeavesTheViewAfterAPressThatNoMovementCameBefore) {
    tracker.pressed({10, 10});
    tracker.moved({20, 10});
    tracker.released({-50, 10}, false);

    EXPECT_EQ(listener.take(),
              (Log{"in", "pressed 10", "moved 20", "released -50", "exited", "out"}));
}

TEST_F(PointerTrackerTest, ReportsThePressOfTheMiddleButtonUnlessAnotherIsHeldOrAMenuIsOpen) {
    enter();
    listener.take();
    tracker.middlePressed({10, 10});
    EXPECT_EQ(listener.take(), (Log{"middle 10"}));
    tracker.pressed({10, 10});
    listener.take();
    tracker.middlePressed({10, 10});
    EXPECT_EQ(listener.take(), Log{});
    tracker.menuOpened();
    listener.take();
    tracker.middlePressed({10, 10});
    EXPECT_EQ(listener.take(), Log{});
}

}
}
