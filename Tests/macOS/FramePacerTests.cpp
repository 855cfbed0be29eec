#include "Translation/FramePacer.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

using Start = FramePacer::Start;
using Tick = FramePacer::Tick;

TEST(FramePacer, TheFirstFrameAfterAWhileComesBeforeTheTicks) {
    FramePacer pacer;

    EXPECT_EQ(pacer.request(), Start::ticks);

    EXPECT_TRUE(pacer.fire());
}

TEST(FramePacer, AskingTwiceIsOneFrame) {
    FramePacer pacer;

    EXPECT_EQ(pacer.request(), Start::ticks);
    EXPECT_EQ(pacer.request(), Start::notNeeded);

    EXPECT_TRUE(pacer.fire());
    EXPECT_FALSE(pacer.fire());
}

TEST(FramePacer, FurtherFramesComeWithTheTicks) {
    FramePacer pacer;
    EXPECT_EQ(pacer.request(), Start::ticks);
    EXPECT_TRUE(pacer.fire());

    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(pacer.request(), Start::notNeeded);
        EXPECT_EQ(pacer.tick(), Tick::frame);
    }
}

TEST(FramePacer, ATickBeforeTheFirstFrameShowsIt) {
    FramePacer pacer;
    EXPECT_EQ(pacer.request(), Start::ticks);

    EXPECT_EQ(pacer.tick(), Tick::frame);

    EXPECT_FALSE(pacer.fire());
}

TEST(FramePacer, TheTicksEndWithTheFirstThatWasNotRequested) {
    FramePacer pacer;
    EXPECT_EQ(pacer.request(), Start::ticks);
    EXPECT_TRUE(pacer.fire());

    EXPECT_EQ(pacer.tick(), Tick::rest);

    EXPECT_FALSE(pacer.isTicking());
    EXPECT_EQ(pacer.request(), Start::ticks);
    EXPECT_TRUE(pacer.isTicking());
}

TEST(FramePacer, WithoutARequestThereIsNoFrame) {
    FramePacer pacer;

    EXPECT_FALSE(pacer.fire());
    EXPECT_EQ(pacer.tick(), Tick::rest);
}

}
}
