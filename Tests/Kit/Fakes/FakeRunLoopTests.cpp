#include "Support/FakeRunLoop.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vireline {
namespace {

using test::FakeRunLoop;

TEST(FakeRunLoop, FiresInTimeOrderAtTheExactTimesAndTiesInOrderOfMaking) {
    FakeRunLoop loop;
    std::vector<std::pair<char, double>> fired;
    const auto note = [&](char name) {
        return [&, name] { fired.emplace_back(name, loop.now()); };
    };
    const Timer late = loop.after(0.3, note('c'));
    const Timer early = loop.after(0.1, note('a'));
    const Timer tied = loop.after(0.3, note('d'));
    const Timer repeating = loop.every(0.2, note('b'));

    loop.advance(0.5);

    EXPECT_EQ(fired, (std::vector<std::pair<char, double>>{
                         {'a', 0.1}, {'b', 0.2}, {'c', 0.3}, {'d', 0.3}, {'b', 0.4}}));
    EXPECT_EQ(loop.now(), 0.5);
    EXPECT_EQ(loop.pendingTimers(), 1);
}

TEST(FakeRunLoop, DoesNotFireATimerThatAnEarlierCallbackDropped) {
    FakeRunLoop loop;
    int fired = 0;
    Timer second;
    const Timer first = loop.after(0.1, [&] { second.reset(); });
    second = loop.after(0.1, [&] { ++fired; });

    loop.advance(1);

    EXPECT_EQ(fired, 0);
}

TEST(FakeRunLoop, LetsARepeatingTimerDropItself) {
    FakeRunLoop loop;
    int fired = 0;
    Timer timer;
    timer = loop.every(0.1, [&] {
        if (++fired == 2)
            timer.reset();
    });

    loop.advance(1);

    EXPECT_EQ(fired, 2);
    EXPECT_EQ(loop.pendingTimers(), 0);
}

TEST(FakeRunLoop, TakesAZeroDelayInTheNextTurn) {
    FakeRunLoop loop;
    int fired = 0;
    const Timer timer = loop.after(0, [&] { ++fired; });
    EXPECT_EQ(fired, 0);

    loop.advance(0);

    EXPECT_EQ(fired, 1);
}

TEST(FakeRunLoop, AddsUpSmallStepsWithoutDrift) {
    FakeRunLoop loop;
    int fired = 0;
    const Timer timer = loop.after(0.8, [&] { ++fired; });

    for (int i = 0; i < 7; ++i)
        loop.advance(0.1);
    EXPECT_EQ(fired, 0);
    loop.advance(0.1);

    EXPECT_EQ(fired, 1);
}

}
}
