#include "Linux/EventLoop.hpp"
#include "Toolkit/QtRunLoop.hpp"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <cmath>
#include <limits>
#include <string>

namespace vireline::xdg {
namespace {

using test::deliverPendingEvents;
using test::waitUntil;

class QtRunLoopTest : public testing::Test {
protected:
    QtRunLoopTest() { test::testApplication(); }

    QtRunLoop loop;
};

TEST_F(QtRunLoopTest, NeverFiresBeforeTheTimeIsUp) {
    for (const double seconds : {0.0004, 0.001, 0.0101, 0.02}) {
        const double start = loop.now();
        double end = 0;
        const Timer timer = loop.after(seconds, [&] { end = loop.now(); });

        ASSERT_TRUE(waitUntil([&] { return end > 0; }));

        EXPECT_GE(end - start, seconds);
    }
}

TEST_F(QtRunLoopTest, KeepsThePaceOfARepeatingTimerOverLateFirings) {
    int count = 0;
    const double start = loop.now();
    const Timer timer = loop.every(0.010'4, [&] { ++count; });

    ASSERT_TRUE(waitUntil([&] { return count == 20; }));

    // Rounding each interval up to whole milliseconds would make the twentieth firing 12 ms late;
    // but so may a busy machine, so only the early side is checked.
    EXPECT_GE(loop.now() - start, 20 * 0.010'4);
}

TEST_F(QtRunLoopTest, TakesVeryLongAndSenselessDelays) {
    int fired = 0;
    const auto count = [&] { ++fired; };
    const Timer decades = loop.after(2e9, count);
    const Timer forever = loop.after(std::numeric_limits<double>::infinity(), count);
    const Timer weeks = loop.every(60.0 * 24 * 3600, count);
    deliverPendingEvents();
    EXPECT_EQ(fired, 0);

    const Timer past = loop.after(-1, count);
    const Timer senseless = loop.after(std::nan(""), count);
    EXPECT_TRUE(waitUntil([&] { return fired == 2; }));
}

TEST_F(QtRunLoopTest, OutlivedTimersAreHarmless) {
    Timer timer;
    {
        QtRunLoop gone;
        timer = gone.after(0, [] { FAIL(); });
    }
    deliverPendingEvents();

    timer.reset();
}

TEST_F(QtRunLoopTest, SleepsWhileNoTimerIsPending) {
    {
        const Timer dropped = loop.every(0.001, [] {});
    }
    deliverPendingEvents();

    EXPECT_FALSE(QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents));
}

}
}
