// When a dock's frames are due: in step with a display link, or with a timer where views have none.
#include "Cocoa/Paper.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Panels/FrameClock.hpp"
#include "Unseen.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

/// Version 13 has no display links of views.
class Frames : public testing::TestWithParam<int>, private NonCopyable {
protected:
    Frames() {
        paper::setSystemVersion(GetParam());
        @autoreleasepool {
            paper::plug({{.number = 1}});
            window = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 400, 100)
                                                 styleMask:0
                                                   backing:NSBackingStoreBuffered
                                                     defer:NO];
            window.releasedWhenClosed = NO;
            [window orderFrontRegardless];
        }
    }
    ~Frames() override { EXPECT_EQ(unseenFaults(), std::vector<std::string>{}); }

    /// Asks for the next frame as soon as one is due, as a movement does, until that many were.
    void make(int wanted) {
        @autoreleasepool {
            clock = std::make_unique<FrameClock>(window.contentView, [this, wanted] {
                if (++frames < wanted)
                    clock->request();
            });
        }
    }
    void request() {
        @autoreleasepool {
            clock->request();
        }
    }
    /// Whether anything is to happen by itself.
    static bool isTicking() {
        bool ticks = paper::pendingTimers() != 0;
        for (CADisplayLink* const& link : paper::displayLinks())
            ticks = ticks || !link.paused;
        return ticks;
    }

    NSWindow* window = nil;
    std::unique_ptr<FrameClock> clock;
    int frames = 0;
};

TEST_P(Frames, ComeAtOnceAfterAWhileWithoutAny) {
    make(1);
    EXPECT_FALSE(isTicking());
    request();
    EXPECT_EQ(frames, 0);
    @autoreleasepool {
        paper::drain();
    }
    EXPECT_EQ(frames, 1);
}

TEST_P(Frames, ComeAsOftenAsTheDisplayShowsThem) {
    make(1000);
    request();
    paper::advance(1);
    EXPECT_NEAR(frames, 60, 2);
}

TEST_P(Frames, EndWhenNoneIsAskedFor) {
    make(5);
    request();
    paper::advance(1);
    EXPECT_EQ(frames, 5);
    EXPECT_FALSE(isTicking());
    request();
    paper::advance(1);
    EXPECT_EQ(frames, 6);
    EXPECT_FALSE(isTicking());
}

TEST_P(Frames, GoOnAfterTheDisplayWasAway) {
    make(1000);
    request();
    paper::advance(0.5);
    const int before = frames;
    @autoreleasepool {
        clock->catchUp();
    }
    paper::advance(0.5);
    EXPECT_NEAR(frames - before, 30, 3);
    EXPECT_LE(paper::displayLinks().size() + paper::pendingTimers(), 1U);
}

TEST_P(Frames, AreNotCaughtUpWithWithoutARequest) {
    make(1);
    @autoreleasepool {
        clock->catchUp();
    }
    paper::advance(0.5);
    EXPECT_EQ(frames, 0);
    EXPECT_FALSE(isTicking());
}

TEST_P(Frames, EndWithTheClockAlsoWithinAFrame) {
    @autoreleasepool {
        clock = std::make_unique<FrameClock>(window.contentView, [this] {
            if (++frames == 3)
                clock.reset();
            else
                clock->request();
        });
    }
    request();
    paper::advance(1);
    EXPECT_EQ(frames, 3);
    EXPECT_EQ(paper::displayLinks().size(), 0U);
    EXPECT_EQ(paper::pendingTimers(), 0U);
}

TEST_P(Frames, ComeOneByOneWhereTheSystemRaises) {
    make(1);
    for (const char* const selector : {"setPaused:", "addTimer:forMode:"})
        paper::rt::makeRaise(selector);
    request();
    @autoreleasepool {
        paper::drain();
    }
    EXPECT_EQ(frames, 1);
    EXPECT_EQ(paper::rt::raised("setPaused:") + paper::rt::raised("addTimer:forMode:"), 1);
    paper::rt::clearFaults();
}

TEST_P(Frames, ComeOneByOneWhereThereIsNoBeat) {
    for (const char* const selector :
         {"displayLinkWithTarget:selector:", "timerWithTimeInterval:repeats:block:"})
        paper::rt::makeRaise(selector);
    make(1);
    request();
    @autoreleasepool {
        paper::drain();
    }
    EXPECT_EQ(frames, 1);
    paper::rt::clearFaults();
}

TEST_P(Frames, AreGivenOneByOneWithoutAView) {
    clock = std::make_unique<FrameClock>(nil, [this] { ++frames; });
    request();
    @autoreleasepool {
        paper::drain();
    }
    EXPECT_EQ(frames, 1);
    EXPECT_FALSE(isTicking());
}

TEST_P(Frames, DoNotKeepTheirViewAlive) {
    __weak NSView* view = nil;
    @autoreleasepool {
        NSView* const made = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 100, 100)];
        view = made;
        clock = std::make_unique<FrameClock>(made, [this] { ++frames; });
        request();
    }
    EXPECT_EQ(view, nil);
}

INSTANTIATE_TEST_SUITE_P(Versions, Frames, testing::Values(13, 14));

class FramesByTimer : public Frames {
protected:
    /// How many come in a second.
    double rate() {
        constexpr int seconds = 10;
        make(10'000);
        request();
        paper::advance(seconds);
        return static_cast<double>(frames) / seconds;
    }
};

TEST_P(FramesByTimer, FollowTheRateOfTheDisplay) {
    @autoreleasepool {
        NSScreen.screens.firstObject.maximumFramesPerSecond = 120;
    }
    EXPECT_NEAR(rate(), 120, 0.3);
}

TEST_P(FramesByTimer, ComeAtTheUsualRateWhereTheDisplaySaysNone) {
    @autoreleasepool {
        NSScreen.screens.firstObject.maximumFramesPerSecond = 0;
    }
    EXPECT_NEAR(rate(), 60, 0.3);
}

TEST_P(FramesByTimer, EndWithTheClockEvenIfTheTimerCannotBeEnded) {
    make(1000);
    request();
    paper::advance(0.1);
    const int before = frames;
    EXPECT_GT(before, 0);
    paper::rt::makeRaise("invalidate");
    clock = nullptr;
    paper::rt::clearFaults();
    paper::advance(1);
    EXPECT_EQ(frames, before);
}

INSTANTIATE_TEST_SUITE_P(Version, FramesByTimer, testing::Values(13));

}
}
