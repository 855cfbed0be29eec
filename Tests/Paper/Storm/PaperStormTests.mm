// The whole program on paper under random events. Each course is a process of its own; a failing
// one is cut down to the steps that matter.
#include "Storm/Shrinker.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace vireline::storm {
namespace {

constexpr int steps = 400;
/// To cut a failing course down.
constexpr int mostRuns = 60;

/// Fewer if those who run many builds say so.
int stepsOfACourse() {
    const char* const asked = std::getenv("VIRELINE_STORM_STEPS");
    return asked == nullptr ? steps : std::atoi(asked);
}

testing::AssertionResult holds(unsigned seed) {
    const Episode episode = wholeEpisode(seed, stepsOfACourse());
    const auto failure = run(episode);
    if (!failure)
        return testing::AssertionSuccess();
    const Find find{episode, *failure};
    // Shrinking takes a while, and a mutation run only needs to know that the test fails.
    const bool cutsDown = std::getenv("VIRELINE_UNCUT") == nullptr;
    return testing::AssertionFailure() << report(cutsDown ? shrunk(find, mostRuns) : find);
}

class PaperStorm : public testing::TestWithParam<unsigned> {};

TEST_P(PaperStorm, LeavesTheProgramAsItShouldBe) {
    EXPECT_TRUE(holds(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, PaperStorm, testing::Range(1U, 4U));

/// Another course every time; the report says how to repeat it.
TEST(PaperStormOfToday, LeavesTheProgramAsItShouldBe) {
    const unsigned seed = std::random_device{}() % 1'000'000;
    RecordProperty("seed", static_cast<int>(seed));
    std::printf("seed %u\n", seed);
    EXPECT_TRUE(holds(seed));
}

/// Whatever it is doing, it can be quit.
TEST(PaperStormsEnd, LeavesNothingAtAnyMoment) {
    for (int length = 1; length < 50; length += 6) {
        const auto failure = run(wholeEpisode(static_cast<unsigned>(100 + length), length));
        EXPECT_FALSE(failure) << report(
            {wholeEpisode(static_cast<unsigned>(100 + length), length), *failure});
    }
}

}
}
