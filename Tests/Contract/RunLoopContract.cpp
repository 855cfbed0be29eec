/// The contract of RunLoop, run against the virtual clock and the real one. All delays are short,
/// because they are real for the latter.
#include "Host.hpp"
#include "Support/FakeRunLoop.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace vireline {
namespace {

class VirtualTime {
public:
    /// Lets time pass until the condition holds; returns false if it never does.
    bool passUntil(const std::function<bool()>& condition) {
        for (int step = 0; step < 10'000; ++step) {
            if (condition())
                return true;
            loop.advance(0.001);
        }
        return condition();
    }

    test::FakeRunLoop loop;
};

class RealTime {
public:
    RealTime() { test::prepareHost(); }

    static bool passUntil(const std::function<bool()>& condition) {
        return test::waitUntil(condition);
    }

    test::HostRunLoop loop;
};

template <class Time>
class RunLoopContract : public testing::Test {
protected:
    /// Lets `seconds` pass, which fires everything due by then.
    void pass(double seconds) {
        bool isOver = false;
        const Timer end = loop.after(seconds, [&] { isOver = true; });
        ASSERT_TRUE(time.passUntil([&] { return isOver; }));
    }

    Time time;
    RunLoop& loop = time.loop;
};

using RunLoops = testing::Types<VirtualTime, RealTime>;
TYPED_TEST_SUITE(RunLoopContract, RunLoops);

TYPED_TEST(RunLoopContract, FiresOnceAndNotBeforeTheTimeIsUp) {
    const double start = this->loop.now();
    std::vector<double> firings;
    const Timer timer = this->loop.after(0.02, [&] { firings.push_back(this->loop.now()); });

    this->pass(0.05);

    ASSERT_EQ(firings.size(), 1U);
    EXPECT_GE(firings.front() - start, 0.02);
}

TYPED_TEST(RunLoopContract, NeverFiresWithinTheCall) {
    bool hasFired = false;

    const Timer timer = this->loop.after(0, [&] { hasFired = true; });

    EXPECT_FALSE(hasFired);
    EXPECT_TRUE(this->time.passUntil([&] { return hasFired; }));
}

TYPED_TEST(RunLoopContract, FiresInTheOrderOfTheTimes) {
    std::vector<std::string> order;
    const Timer later = this->loop.after(0.03, [&] { order.emplace_back("later"); });
    const Timer sooner = this->loop.after(0.01, [&] { order.emplace_back("sooner"); });

    this->pass(0.05);

    EXPECT_EQ(order, (std::vector<std::string>{"sooner", "later"}));
}

TYPED_TEST(RunLoopContract, DoesNotFireATimerThatWasDropped) {
    bool hasFired = false;
    Timer timer = this->loop.after(0.01, [&] { hasFired = true; });

    timer.reset();
    this->pass(0.03);

    EXPECT_FALSE(hasFired);
}

TYPED_TEST(RunLoopContract, DoesNotFireATimerThatWasReplaced) {
    std::vector<std::string> order;
    Timer timer = this->loop.after(0.01, [&] { order.emplace_back("first"); });

    timer = this->loop.after(0.02, [&] { order.emplace_back("second"); });
    this->pass(0.05);

    EXPECT_EQ(order, std::vector<std::string>{"second"});
}

TYPED_TEST(RunLoopContract, RepeatsFirstAfterOneInterval) {
    const double start = this->loop.now();
    std::vector<double> firings;
    const Timer timer = this->loop.every(0.01, [&] { firings.push_back(this->loop.now()); });

    ASSERT_TRUE(this->time.passUntil([&] { return firings.size() >= 3; }));

    EXPECT_GE(firings.front() - start, 0.01);
    EXPECT_GE(firings.at(2) - start, 0.03);
}

TYPED_TEST(RunLoopContract, EndsARepeatingTimerThatDropsItself) {
    int count = 0;
    Timer timer;
    timer = this->loop.every(0.005, [&] {
        if (++count == 2)
            timer.reset();
    });

    this->pass(0.05);

    EXPECT_EQ(count, 2);
}

TYPED_TEST(RunLoopContract, FiresATimerThatIsMadeInAnothersCallback) {
    bool hasFired = false;
    Timer inner;
    const Timer outer =
        this->loop.after(0.005, [&] { inner = this->loop.after(0.005, [&] { hasFired = true; }); });

    EXPECT_TRUE(this->time.passUntil([&] { return hasFired; }));
}

TYPED_TEST(RunLoopContract, LeavesTheHandleOfATimerThatFiredSet) {
    bool hasFired = false;
    Timer timer = this->loop.after(0, [&] { hasFired = true; });

    ASSERT_TRUE(this->time.passUntil([&] { return hasFired; }));

    EXPECT_TRUE(timer);
    EXPECT_NO_FATAL_FAILURE(timer.reset());
}

TYPED_TEST(RunLoopContract, NeverSetsTheClockBack) {
    const double before = this->loop.now();
    this->pass(0.01);

    EXPECT_GE(this->loop.now(), before + 0.01);
}

}
}
