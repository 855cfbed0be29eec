// Taps in the pointer's path: which moves they see, where they put the pointer, and what the system
// may do to them.
#include "ClientWindows/EventTaps.hpp"
#include "Cocoa/Paper.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Unseen.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <thread>

namespace vireline::macos {
namespace {

std::optional<Point> toTheRight(Point at) {
    return Point{at.x + 100, at.y};
}

std::optional<Point> nowhereElse(Point /*at*/) {
    return std::nullopt;
}

class Taps : public testing::Test, private NonCopyable {
protected:
    Taps() { paper::setTrusted(true); }
    ~Taps() override {
        EXPECT_EQ(unseenFaults(), std::vector<std::string>{});
        EXPECT_EQ(paper::eventTaps(), 0U);
    }

    std::unique_ptr<PointerTap> make(PointerRule rule) {
        auto made =
            port.create(std::move(rule), [this](PointerTapEvent why) { disabled.push_back(why); });
        return made ? *std::move(made) : nullptr;
    }
    std::unique_ptr<PointerTap> makeEnabled(PointerRule rule) {
        auto tap = make(std::move(rule));
        tap->setEnabled(true);
        return tap;
    }
    static double movedTo(double x, bool isDragging = false) {
        @autoreleasepool {
            return paper::throughTaps({x, 50}, isDragging).x;
        }
    }

    EventTaps port;
    std::vector<PointerTapEvent> disabled;
};

TEST_F(Taps, LetMovesPassUntilTheyAreEnabledAndAfterThat) {
    const auto tap = make(toTheRight);
    EXPECT_EQ(movedTo(10), 10);
    tap->setEnabled(true);
    EXPECT_EQ(movedTo(10), 110);
    tap->setEnabled(false);
    EXPECT_EQ(movedTo(10), 10);
}

TEST_F(Taps, SeeMovesWithTheButtonHeldAsWell) {
    const auto tap = makeEnabled(toTheRight);
    EXPECT_EQ(movedTo(10, true), 110);
}

TEST_F(Taps, LeaveThePointerAloneIfTheRuleDoes) {
    const auto tap = makeEnabled(nowhereElse);
    EXPECT_EQ(movedTo(10), 10);
}

TEST_F(Taps, AskTheRuleInTheCoordinatesOfEvents) {
    Point asked;
    const auto tap = makeEnabled([&](Point at) {
        asked = at;
        return nowhereElse(at);
    });
    EXPECT_EQ(movedTo(10), 10);
    EXPECT_EQ(asked, (Point{10, 50}));
}

TEST_F(Taps, AskTheRuleThatTheyWereGivenLast) {
    const auto held = std::make_shared<int>(0);
    const auto tap = makeEnabled([held](Point at) { return toTheRight(at); });
    EXPECT_EQ(movedTo(10), 110);
    tap->setRule(nowhereElse);
    EXPECT_EQ(movedTo(10), 10);
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(Taps, AskTheRuleWithoutTheMainThread) {
    std::atomic<bool> wasMain = true;
    const auto main = std::this_thread::get_id();
    const auto tap = makeEnabled([&](Point at) {
        wasMain = std::this_thread::get_id() == main;
        return nowhereElse(at);
    });
    EXPECT_EQ(movedTo(10), 10);
    EXPECT_FALSE(wasMain);
}

TEST_F(Taps, AreNotMadeWithoutThePermission) {
    paper::setTrusted(false);
    const auto made = port.create(toTheRight, [](PointerTapEvent) {});
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().code, EPERM);
    EXPECT_TRUE(port.needPermission());
}

TEST_F(Taps, AreNotMadeWhereTheSystemTakesThePortBackAtOnce) {
    paper::takeTapsBack(true);
    EXPECT_FALSE(port.create(toTheRight, [](PointerTapEvent) {}));
    paper::takeTapsBack(false);
    EXPECT_NE(make(toTheRight), nullptr);
}

TEST_F(Taps, SayThatTheSystemDisabledThemAndWhy) {
    @autoreleasepool {
        const auto tap = makeEnabled(toTheRight);
        paper::disableTaps(kCGEventTapDisabledByTimeout);
        EXPECT_EQ(movedTo(10), 10);
        tap->setEnabled(true);
        paper::disableTaps(kCGEventTapDisabledByUserInput);
    }
    EXPECT_EQ(disabled, (std::vector{PointerTapEvent::tapDisabledByTimeout,
                                     PointerTapEvent::tapDisabledByUserInput}));
}

TEST_F(Taps, SayNothingOnceTheyHaveEnded) {
    @autoreleasepool {
        std::unique_ptr<PointerTap> later;
        int told = 0;
        // Both are disabled before either is told of it.
        auto first = port.create(nowhereElse, [&](PointerTapEvent) {
            ++told;
            later.reset();
        });
        ASSERT_TRUE(first);
        (*first)->setEnabled(true);
        later = makeEnabled(nowhereElse);
        paper::disableTaps(kCGEventTapDisabledByTimeout);
        EXPECT_EQ(told, 1);
        EXPECT_EQ(later, nullptr);
        EXPECT_TRUE(disabled.empty());
    }
}

TEST_F(Taps, MayEndInWhatTheyTell) {
    @autoreleasepool {
        std::unique_ptr<PointerTap> tap;
        int told = 0;
        auto made = port.create(nowhereElse, [&](PointerTapEvent) {
            tap.reset();
            ++told;
        });
        ASSERT_TRUE(made);
        tap = *std::move(made);
        tap->setEnabled(true);
        paper::disableTaps(kCGEventTapDisabledByUserInput);
        EXPECT_EQ(told, 1);
    }
}

TEST_F(Taps, GiveBackTheirRuleAndTheirThread) {
    const auto held = std::make_shared<int>(0);
    {
        const auto tap = makeEnabled([held](Point at) { return toTheRight(at); });
        EXPECT_EQ(paper::enabledTaps(), 1U);
        EXPECT_GT(held.use_count(), 1);
    }
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(movedTo(10), 10);
}

}
}
