#include "Linux/EventLoop.hpp"
#include "Panels/Picture/FrameClock.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace vireline::x11 {
namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

class FrameClockTest : public testing::Test {
protected:
    FrameClockTest() { test::testApplication(); }

    /// The time that `count` consecutive frames take.
    milliseconds timeOf(int count) {
        left_ = count;
        const auto start = steady_clock::now();
        clock.request();
        EXPECT_TRUE(test::waitUntil([this] { return left_ == 0; }));
        return duration_cast<milliseconds>(steady_clock::now() - start);
    }

    int frames = 0;
    FrameClock clock{[this] {
        ++frames;
        left_ = std::max(left_ - 1, 0);
        if (left_ > 0)
            clock.request();
    }};

private:
    int left_ = 0;
};

TEST_F(FrameClockTest, GivesTheFirstFrameWithoutWaitingForTheDisplay) {
    clock.setRefreshRate(20);
    EXPECT_LT(timeOf(1).count(), 50);
}

TEST_F(FrameClockTest, GivesOneFrameForManyRequests) {
    for (int i = 0; i < 10; ++i)
        clock.request();
    EXPECT_TRUE(test::waitUntil([this] { return frames > 0; }));
    test::deliverPendingEvents();
    EXPECT_EQ(frames, 1);
}

TEST_F(FrameClockTest, GivesNoFrameThatWasNotRequested) {
    timeOf(1);
    bool isLater = false;
    QTimer::singleShot(milliseconds{60}, [&] { isLater = true; });
    EXPECT_TRUE(test::waitUntil([&] { return isLater; }));
    EXPECT_EQ(frames, 1);
}

TEST_F(FrameClockTest, KeepsUpWithTheDisplayThoughTimersCountWholeMilliseconds) {
    clock.setRefreshRate(60);
    // There are 29 intervals between 30 frames; rounded up to 17 ms each they would take 493 ms.
    EXPECT_GE(timeOf(30).count(), 480);
}

TEST_F(FrameClockTest, NeverComesFasterThanTheDisplay) {
    clock.setRefreshRate(100);
    EXPECT_GE(timeOf(21).count(), 199);
}

TEST_F(FrameClockTest, CountsTheNextIntervalFromAFrameThatWasRequestedLate) {
    clock.setRefreshRate(20);
    timeOf(1);
    bool isLater = false;
    QTimer::singleShot(milliseconds{80}, [&] { isLater = true; });
    EXPECT_TRUE(test::waitUntil([&] { return isLater; }));
    EXPECT_GE(timeOf(2).count(), 49);
}

TEST_F(FrameClockTest, TakesAnImpossibleRateForAnOrdinaryOne) {
    for (const double rate : {0.0, -1.0, 1e9, std::numeric_limits<double>::quiet_NaN()}) {
        clock.setRefreshRate(rate);
        EXPECT_GE(timeOf(4).count(), 49) << rate;
    }
}

}
}
