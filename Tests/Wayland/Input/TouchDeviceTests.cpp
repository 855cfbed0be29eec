#include "Wayland/Input/SeatTest.hpp"

namespace vireline::wayland {
namespace {

class TouchTest : public SeatTest {
protected:
    TouchTest() { open(); }

    void touchAt(double x, double y) {
        receive([&] { fake_.touchDown(surface_.get(), 7, x, y); });
        EXPECT_EQ(input_.take().size(), 2U);
    }
};

TEST_F(TouchTest, IsAPressAndAReleaseAfterWhichThereIsNoPointer) {
    receive([&] { fake_.touchDown(surface_.get(), 7, 10, 20); });
    EXPECT_EQ(input_.take(), (Happenings{"entered 10 20", "pressed left"}));
    EXPECT_EQ(seat_->lastPress(), fake_.serial());

    receive([&] { fake_.touchUp(7); });
    EXPECT_EQ(input_.take(), (Happenings{"released left", "left"}));
}

TEST_F(TouchTest, Moves) {
    touchAt(1, 1);
    receive([&] { fake_.touchMove(7, 3, 4.5); });
    EXPECT_EQ(input_.take(), (Happenings{"moved 3 4.5"}));
}

TEST_F(TouchTest, IgnoresFurtherFingers) {
    touchAt(1, 1);

    receive([&] {
        fake_.touchDown(surface_.get(), 8, 50, 50);
        fake_.touchMove(8, 60, 60);
        fake_.touchUp(8);
    });
    EXPECT_TRUE(input_.isEmpty());

    receive([&] {
        fake_.touchDown(surface_.get(), 8, 50, 50);
        fake_.touchUp(7);
        fake_.touchMove(8, 60, 60);
        fake_.touchUp(8);
    });
    EXPECT_EQ(input_.take(), (Happenings{"released left", "left"}));
}

TEST_F(TouchTest, LeavesWithoutAReleaseIfTheCompositorTakesIt) {
    touchAt(1, 1);

    receive([&] { fake_.cancelTouch(); });
    EXPECT_EQ(input_.take(), (Happenings{"left"}));

    receive([&] { fake_.cancelTouch(); });
    EXPECT_TRUE(input_.isEmpty());

    touchAt(2, 2);
}

TEST_F(TouchTest, LeavesWithoutAReleaseWhenTheScreenIsUnplugged) {
    touchAt(1, 1);

    fake_.setCapabilities(FakeSeat::pointer);
    awaitRead();

    EXPECT_EQ(input_.take(), (Happenings{"left"}));
}

TEST_F(TouchTest, LeavesNothingThatItHasLeftAlready) {
    touchAt(1, 1);
    receive([&] { fake_.touchUp(7); });
    (void)input_.take();

    fake_.setCapabilities(FakeSeat::pointer);
    awaitRead();

    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(TouchTest, IsIgnoredOnAnotherSurface) {
    const auto other = makeSurface();
    sync();

    receive([&] {
        fake_.touchDown(other.get(), 7, 1, 1);
        fake_.touchMove(7, 2, 2);
        fake_.touchUp(7);
        fake_.touchDown(other.get(), 7, 1, 1);
        fake_.cancelTouch();
    });

    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(TouchTest, IsIgnoredOnASurfaceThatIsGone) {
    touchAt(1, 1);
    compositor_.send([&] {
        fake_.touchMove(7, 2, 2);
        fake_.touchUp(7);
        fake_.touchDown(surface_.get(), 7, 1, 1);
        fake_.touchUp(7);
    });

    seat_->surfaces().remove(*surface_);
    surface_.reset();
    awaitRead();

    EXPECT_TRUE(input_.isEmpty());
}

}
}
