// The whole program on paper under random events. Each sequence runs in a separate process; a
// failing one is reduced to the relevant steps.
#include "Storm/Shrinker.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace vireline::storm {
namespace {

constexpr int steps = 400;
/// Limit on runs for reducing a failing sequence.
constexpr int mostRuns = 60;

/// May be lowered by jobs that run many builds.
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
    // Reducing takes a while, and a mutation run only needs to know that the test fails.
    const bool cutsDown = std::getenv("VIRELINE_UNCUT") == nullptr;
    return testing::AssertionFailure() << report(cutsDown ? shrunk(find, mostRuns) : find);
}

class PaperStorm : public testing::TestWithParam<unsigned> {};

TEST_P(PaperStorm, LeavesTheProgramAsItShouldBe) {
    EXPECT_TRUE(holds(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, PaperStorm, testing::Range(1U, 4U));

/// A new seed each time; the report says how to reproduce a failure.
TEST(PaperStormOfToday, LeavesTheProgramAsItShouldBe) {
    const unsigned seed = std::random_device{}() % 1'000'000;
    RecordProperty("seed", static_cast<int>(seed));
    std::printf("seed %u\n", seed);
    EXPECT_TRUE(holds(seed));
}

/// The program can be quit at any moment.
TEST(PaperStormsEnd, LeavesNothingAtAnyMoment) {
    for (int length = 1; length < 50; length += 6) {
        const auto failure = run(wholeEpisode(static_cast<unsigned>(100 + length), length));
        EXPECT_FALSE(failure) << report(
            {wholeEpisode(static_cast<unsigned>(100 + length), length), *failure});
    }
}

}
}
