#include "ClientWindows/DockAnchorGuard.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vireline {
namespace {

using Lines = std::vector<std::string>;
using Status = DockAnchorGuard::Status;

struct DockAnchorGuardTest : testing::Test {
    DockAnchorGuardTest() { guard->setZones({{1920, 1077, 1920, 3}}); }

    test::LoggedLines log;
    test::FakePlatform platform;
    test::FakePointerTaps& taps = platform.pointerTaps;
    std::unique_ptr<DockAnchorGuard> guard = std::make_unique<DockAnchorGuard>(
        platform.accessibility, platform.pointerTaps, platform.runLoop);
};

TEST_F(DockAnchorGuardTest, IsOffAtFirstAndTapsNothing) {
    EXPECT_EQ(guard->status(), Status::off);
    EXPECT_FALSE(taps.isTapped());
}

TEST_F(DockAnchorGuardTest, KeepsThePointerOutOfTheBands) {
    guard->enable();

    EXPECT_EQ(guard->status(), Status::active);
    EXPECT_EQ(taps.move({2000, 1079}), (Point{2000, 1077}));
    EXPECT_EQ(taps.move({2000, 900}), (Point{2000, 900}));
    EXPECT_EQ(log.messages(), Lines{"anchor guard active, 1 zones"});
}

TEST_F(DockAnchorGuardTest, TakesNewZonesWithTheNextMove) {
    guard->enable();

    guard->setZones({{0, 500, 100, 3}});

    EXPECT_EQ(taps.move({2000, 1079}), (Point{2000, 1079}));
    EXPECT_EQ(taps.move({50, 502}), (Point{50, 500}));
}

TEST_F(DockAnchorGuardTest, LetsThePointerGoToADisplayBelowThatComes) {
    guard->enable();
    EXPECT_EQ(taps.move({2000, 1500}), (Point{2000, 1077}));

    guard->setDisplays({{1920, 0, 1920, 1080}, {1920, 1080, 1920, 1080}});

    EXPECT_EQ(taps.move({2000, 1500}), (Point{2000, 1500}));
}

// The tap may call its rule on another thread, and once more while the guard is being destroyed.
TEST_F(DockAnchorGuardTest, GivesTheTapARuleThatNeedsNothingOfIt) {
    guard->enable();
    const PointerRule rule = taps.rule();

    guard->setZones({});
    guard.reset();

    EXPECT_EQ(rule({2000, 1079}), (Point{2000, 1077}));
}

// Behaviour: anchor-guard-4
TEST_F(DockAnchorGuardTest, RunsWithoutZonesAndChangesNothing) {
    guard->setZones({});

    guard->enable();

    EXPECT_TRUE(taps.isEnabled());
    EXPECT_EQ(taps.move({2000, 5000}), (Point{2000, 5000}));
    EXPECT_EQ(log.messages(), Lines{"anchor guard active, 0 zones"});
}

TEST_F(DockAnchorGuardTest, EnablingAnActiveGuardDoesNothing) {
    guard->enable();
    guard->enable();

    EXPECT_EQ(taps.created, 1);
    EXPECT_EQ(log.messages().size(), 1U);
}

// Behaviour: anchor-guard-5
TEST_F(DockAnchorGuardTest, AsksForThePermissionOnceHoweverOftenItIsEnabled) {
    platform.accessibility.trusted = false;

    guard->enable();
    guard->enable();

    EXPECT_EQ(guard->status(), Status::waitingForPermission);
    EXPECT_EQ(platform.accessibility.prompts, 1);
    EXPECT_EQ(log.messages(), Lines{"anchor guard: requested Accessibility permission"});
    EXPECT_EQ(platform.runLoop.pendingTimers(), 1);
}

TEST_F(DockAnchorGuardTest, StartsAtTheTickThatSeesThePermission) {
    platform.accessibility.trusted = false;
    guard->enable();
    platform.runLoop.advance(2.5);
    platform.accessibility.trusted = true;
    platform.runLoop.advance(1.4);
    EXPECT_EQ(guard->status(), Status::waitingForPermission);

    platform.runLoop.advance(0.2);

    EXPECT_EQ(guard->status(), Status::active);
    EXPECT_TRUE(taps.isEnabled());
}

TEST_F(DockAnchorGuardTest, EnablingAgainSeesAPermissionThatCameMeanwhile) {
    platform.accessibility.trusted = false;
    guard->enable();
    platform.accessibility.trusted = true;

    guard->enable();
    platform.runLoop.advance(10);

    EXPECT_EQ(guard->status(), Status::active);
    EXPECT_EQ(taps.created, 1);
}

TEST_F(DockAnchorGuardTest, KeepsWaitingIfNoTapCanBeCreatedAndLogsItOnce) {
    taps.failure = PlatformError{1, "no tap"};

    guard->enable();
    platform.runLoop.advance(10);

    EXPECT_EQ(guard->status(), Status::waitingForPermission);
    EXPECT_EQ(log.messages(), Lines{"anchor guard: tap creation failed, staying in waiting state"});
}

TEST_F(DockAnchorGuardTest, TriesForATapAgainByItself) {
    taps.failure = PlatformError{1, "no tap"};
    guard->enable();
    taps.failure.reset();

    platform.runLoop.advance(2.1);

    EXPECT_EQ(guard->status(), Status::active);
}

TEST_F(DockAnchorGuardTest, NeverEnablesATapAgainWithoutThePermission) {
    for (const auto reason :
         {PointerTapEvent::tapDisabledByTimeout, PointerTapEvent::tapDisabledByUserInput}) {
        platform.accessibility.trusted = true;
        guard->enable();
        platform.accessibility.trusted = false;

        taps.disable(reason);

        EXPECT_FALSE(taps.isTapped());
        EXPECT_EQ(guard->status(), Status::waitingForPermission);
    }
}

TEST_F(DockAnchorGuardTest, NoticesThatThePermissionIsGone) {
    guard->enable();
    platform.accessibility.trusted = false;

    platform.runLoop.advance(5.1);

    EXPECT_FALSE(taps.isTapped());
    EXPECT_EQ(guard->status(), Status::waitingForPermission);
    EXPECT_EQ(platform.accessibility.prompts, 0);
}

TEST_F(DockAnchorGuardTest, WhereTapsNeedNoPermissionNothingIsAskedForAndNothingWakesIt) {
    taps.needsPermission = false;
    platform.accessibility.trusted = false;

    guard->enable();

    EXPECT_EQ(guard->status(), Status::active);
    EXPECT_EQ(platform.accessibility.prompts, 0);
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
    taps.disable(PointerTapEvent::tapDisabledByTimeout);
    EXPECT_TRUE(taps.isEnabled());
}

TEST_F(DockAnchorGuardTest, WhereTapsNeedNoPermissionOneThatIsNotToBeHadIsNotWaitedFor) {
    taps.needsPermission = false;
    taps.failure = PlatformError{1, "no tap"};

    guard->enable();

    EXPECT_EQ(guard->status(), Status::waitingForPermission);
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
    taps.failure.reset();
    guard->enable();
    EXPECT_EQ(guard->status(), Status::active);
}

TEST_F(DockAnchorGuardTest, StartsAgainWithThePermission) {
    guard->enable();
    platform.accessibility.trusted = false;
    platform.runLoop.advance(6);
    platform.accessibility.trusted = true;

    platform.runLoop.advance(2.1);

    EXPECT_EQ(guard->status(), Status::active);
    EXPECT_TRUE(taps.isEnabled());
}

TEST_F(DockAnchorGuardTest, TriesForATapAgainWhenEnabledAgain) {
    taps.failure = PlatformError{1, "no tap"};
    guard->enable();
    taps.failure.reset();

    guard->enable();

    EXPECT_EQ(guard->status(), Status::active);
}

TEST_F(DockAnchorGuardTest, EnablesATapAgainThatTheSystemDisabled) {
    guard->enable();

    for (const auto reason :
         {PointerTapEvent::tapDisabledByTimeout, PointerTapEvent::tapDisabledByUserInput}) {
        taps.disable(reason);

        EXPECT_TRUE(taps.isEnabled());
        EXPECT_EQ(taps.move({2000, 1079}), (Point{2000, 1077}));
    }
}

TEST_F(DockAnchorGuardTest, DisablingLeavesNoTapBehind) {
    guard->enable();
    log.clear();

    guard->disable();

    EXPECT_EQ(guard->status(), Status::off);
    EXPECT_FALSE(taps.isTapped());
    EXPECT_EQ(log.messages(), Lines{"anchor guard off"});
}

TEST_F(DockAnchorGuardTest, DisablingEndsTheWait) {
    platform.accessibility.trusted = false;
    guard->enable();

    guard->disable();
    platform.accessibility.trusted = true;
    platform.runLoop.advance(10);

    EXPECT_EQ(guard->status(), Status::off);
    EXPECT_FALSE(taps.isTapped());
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(DockAnchorGuardTest, CanBeEnabledAgain) {
    guard->enable();
    guard->disable();

    guard->enable();

    EXPECT_EQ(guard->status(), Status::active);
    EXPECT_EQ(taps.created, 2);
}

TEST_F(DockAnchorGuardTest, AnnouncesOnlyChangesOfItsStatus) {
    std::vector<Status> seen;
    const auto observation = guard->observeStatus([&] { seen.push_back(guard->status()); });

    guard->disable();
    guard->enable();
    guard->enable();
    guard->disable();
    guard->disable();

    EXPECT_EQ(seen, (std::vector{Status::active, Status::off}));
}

TEST_F(DockAnchorGuardTest, TakesItsTapWithIt) {
    guard->enable();

    guard.reset();

    EXPECT_FALSE(taps.isTapped());
    EXPECT_EQ(taps.move({2000, 1079}), (Point{2000, 1079}));
}

}
}
