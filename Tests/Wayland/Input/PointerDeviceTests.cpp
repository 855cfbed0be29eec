#include "Wayland/Input/SeatTest.hpp"

#include <linux/input-event-codes.h>

#include <chrono>

namespace vireline::wayland {
namespace {

using namespace std::chrono_literals;

/// A time after the end of every test.
constexpr std::chrono::hours farAway{1};

class PointerTest : public SeatTest {
protected:
    PointerTest() { open(); }

    void enterAt(double x, double y) {
        receive([&] { fake_.enter(surface_.get(), x, y); });
        EXPECT_EQ(input_.take().size(), 1U);
    }
};

TEST_F(PointerTest, EntersAndLeaves) {
    receive([&] { fake_.enter(surface_.get(), 10, 20.5); });
    EXPECT_EQ(input_.take(), (Happenings{"entered 10 20.5"}));

    receive([&] { fake_.leave(surface_.get()); });
    EXPECT_EQ(input_.take(), (Happenings{"left"}));
}

TEST_F(PointerTest, PassesOnTheLastOfSeveralMovementsThatArriveTogether) {
    enterAt(1, 1);

    receive([&] {
        fake_.move(2, 2);
        fake_.move(3, 3.25);
        fake_.move(4, 5);
    });

    EXPECT_EQ(input_.take(), (Happenings{"moved 4 5"}));
}

TEST_F(PointerTest, MovesBeforeItsButtonIsPressed) {
    enterAt(1, 1);

    receive([&] {
        fake_.move(2, 2);
        fake_.move(3, 3);
        fake_.press(BTN_LEFT);
        fake_.move(4, 4);
        fake_.release(BTN_LEFT);
        fake_.move(5, 5);
        fake_.move(6, 6);
    });

    EXPECT_EQ(input_.take(),
              (Happenings{"moved 3 3", "pressed left", "moved 4 4", "released left", "moved 6 6"}));
}

TEST_F(PointerTest, MovesBeforeItLeaves) {
    enterAt(1, 1);

    receive([&] {
        fake_.move(2, 2);
        fake_.leave(surface_.get());
    });

    EXPECT_EQ(input_.take(), (Happenings{"moved 2 2", "left"}));
}

TEST_F(PointerTest, DoesNotRepeatAMovementFromBeforeItLeft) {
    receive([&] {
        fake_.enter(surface_.get(), 1, 1);
        fake_.move(2, 2);
        fake_.leave(surface_.get());
        fake_.enter(surface_.get(), 7, 7);
    });

    EXPECT_EQ(input_.take(), (Happenings{"entered 1 1", "moved 2 2", "left", "entered 7 7"}));
}

TEST_F(PointerTest, HasThreeButtons) {
    enterAt(1, 1);

    receive([&] {
        for (const int code : {BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA, BTN_TASK}) {
            fake_.press(static_cast<std::uint32_t>(code));
            fake_.release(static_cast<std::uint32_t>(code));
        }
    });

    EXPECT_EQ(input_.take(), (Happenings{"pressed left", "released left", "pressed right",
                                         "released right", "pressed middle", "released middle"}));
}

TEST_F(PointerTest, RemembersTheSerialOfItsLatestPress) {
    EXPECT_EQ(seat_->lastPress(), 0U);
    enterAt(1, 1);

    receive([&] { fake_.press(BTN_LEFT); });
    const std::uint32_t press = fake_.serial();
    EXPECT_EQ(seat_->lastPress(), press);

    receive([&] { fake_.release(BTN_LEFT); });
    EXPECT_EQ(seat_->lastPress(), press);
}

TEST_F(PointerTest, IsIgnoredOverAnotherSurface) {
    const auto other = makeSurface();
    sync();

    receive([&] {
        fake_.enter(other.get(), 1, 1);
        fake_.move(2, 2);
        fake_.press(BTN_LEFT);
        fake_.release(BTN_LEFT);
        fake_.leave(other.get());
    });

    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(PointerTest, IsIgnoredOverASurfaceThatIsGone) {
    enterAt(1, 1);
    compositor_.send([&] {
        fake_.move(2, 2);
        fake_.press(BTN_LEFT);
        fake_.leave(surface_.get());
    });

    seat_->surfaces().remove(*surface_);
    surface_.reset();
    awaitRead();

    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(PointerTest, IsIgnoredIfItEntersASurfaceThatIsGone) {
    compositor_.send([&] {
        fake_.enter(surface_.get(), 1, 1);
        fake_.move(2, 2);
        fake_.press(BTN_LEFT);
        fake_.leave(surface_.get());
    });

    // The events then arrive without a surface.
    seat_->surfaces().remove(*surface_);
    surface_.reset();
    awaitRead();

    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(PointerTest, LeavesWhenItIsUnplugged) {
    enterAt(1, 1);

    fake_.setCapabilities(FakeSeat::touch);
    awaitRead();
    EXPECT_EQ(input_.take(), (Happenings{"left"}));

    fake_.setCapabilities(FakeSeat::pointer);
    awaitRead();
    sync();
    enterAt(2, 2);
}

TEST_F(PointerTest, LeavesNothingThatItHasLeftAlready) {
    enterAt(1, 1);
    receive([&] { fake_.leave(surface_.get()); });
    (void)input_.take();

    fake_.setCapabilities(FakeSeat::touch);
    awaitRead();

    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(PointerTest, LeavesWhenItsSeatGoes) {
    enterAt(1, 1);

    fake_.withdraw();
    awaitRead();

    EXPECT_EQ(input_.take(), (Happenings{"left"}));
    EXPECT_EQ(seat_->get(), nullptr);
}

/// What the pause is for: the pointer moves many times per frame.
class MovingPointer : public PointerTest {
protected:
    MovingPointer() {
        enterAt(1, 1);
        test::deliverPendingEvents();
    }
    void move(double x) {
        compositor_.send([&] { fake_.move(x, 1); });
    }
};

TEST_F(MovingPointer, IsNotReadAgainBeforeTheNextFrame) {
    seat_->frameBegins(farAway);
    move(2);
    awaitRead();
    EXPECT_EQ(input_.take(), (Happenings{"moved 2 1"}));
    const int before = reads_;

    move(3);
    move(4);
    test::deliverPendingEvents();
    EXPECT_EQ(reads_, before);
    EXPECT_TRUE(input_.isEmpty());

    // A new frame, which is due earlier.
    seat_->frameBegins(10ms);
    ASSERT_TRUE(test::waitUntil([&] { return reads_ > before; }));
    EXPECT_EQ(reads_, before + 1);
    EXPECT_EQ(input_.take(), (Happenings{"moved 4 1"}));
}

TEST_F(MovingPointer, IsReadAgainSoonIfNoFrameIsDue) {
    move(2);
    awaitRead();
    move(3);
    awaitRead();
    EXPECT_EQ(input_.take(), (Happenings{"moved 2 1", "moved 3 1"}));
}

TEST_F(MovingPointer, IsReadLessOftenIfNothingFollowsIt) {
    input_.follows = false;
    const auto begin = std::chrono::steady_clock::now();
    move(2);
    awaitRead();
    move(3);
    awaitRead();
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 30ms);
    EXPECT_EQ(input_.take(), (Happenings{"moved 2 1", "moved 3 1"}));
}

TEST_F(MovingPointer, IsReadAgainShortlyBeforeTheNextFrame) {
    // Another program may delay the test, but hardly each time.
    constexpr auto frame = 400ms;
    bool wasInTime = false;
    for (int attempt = 0; attempt < 5 && !wasInTime; ++attempt) {
        const auto begin = std::chrono::steady_clock::now();
        seat_->frameBegins(frame);
        move(2);
        awaitRead();
        move(3);
        awaitRead();
        const auto elapsed = std::chrono::steady_clock::now() - begin;
        EXPECT_GE(elapsed, frame * 8 / 10);
        wasInTime = elapsed < frame;
    }
    EXPECT_TRUE(wasInTime);
}

TEST_F(MovingPointer, DelaysNothingWhenItRests) {
    seat_->frameBegins(farAway);
    receive([&] { fake_.press(BTN_LEFT); });
    receive([&] { fake_.release(BTN_LEFT); });
    EXPECT_EQ(input_.take(), (Happenings{"pressed left", "released left"}));
}

}
}
