#include "ClientWindows/WindowMover.hpp"
#include "Support/DockFixture.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using test::FakePlatform;
using Lines = std::vector<std::string>;

constexpr std::int32_t process = 100;

/// An app whose windows a test adds, and two displays: 1 and, to its right, 2.
struct WindowMoverTest : testing::Test {
    WindowMoverTest() {
        platform.screens.list = {test::screenAt(1, {0, 0, 1920, 1080}),
                                 test::screenAt(2, {1920, 0, 1280, 1024})};
    }

    [[nodiscard]] std::vector<ScreenSnapshot> screens() const {
        return ScreenSnapshot::current(platform.screens);
    }
    [[nodiscard]] bool hasWindowOn(std::uint32_t display) {
        return mover.appHasWindow(running, display, screens());
    }
    bool summonTo(std::uint32_t display) {
        return mover.summonMainWindow(running, display, screens());
    }
    bool fillOn(std::uint32_t display) {
        return mover.fillMainWindow(running, display, screens(), context);
    }
    void expectCentered(std::uint32_t display = 2) {
        mover.expect(app.bundleID, display, WindowMover::Center{});
    }

    test::LoggedLines log;
    FakePlatform platform;
    test::FakeAccessibility& ax = platform.accessibility;
    AppRef app = platform.install("com.apple.mail", "Mail");
    RunningApplication running = FakePlatform::instanceOf(app, process);
    FillContext context{.position = DockPosition::bottom,
                        .dockReserved = true,
                        .magnification = 1,
                        .configuredIconSize = 44};
    WindowMover mover{platform.accessibility, platform.running, platform.screens, platform.runLoop};
};

TEST_F(WindowMoverTest, TellsOnWhichDisplayTheMainWindowIs) {
    ax.addWindow(running, {100, 100, 400, 300});

    EXPECT_TRUE(hasWindowOn(1));
    EXPECT_FALSE(hasWindowOn(2));
}

// Behaviour: window-mover-3
TEST_F(WindowMoverTest, AWindowWhoseCentreIsOnNoDisplayBelongsToNone) {
    ax.addWindow(running, {-300, 100, 400, 300});

    EXPECT_FALSE(hasWindowOn(1));
    EXPECT_FALSE(hasWindowOn(2));
}

TEST_F(WindowMoverTest, TakesWhatItCannotTellForHere) {
    EXPECT_TRUE(hasWindowOn(2)) << "no window";
    ax.addWindow(running, {100, 100, 400, 300});
    ax.failures["AXPosition"] = {-25211, "disabled"};
    EXPECT_TRUE(hasWindowOn(2)) << "no position";
    ax.failures = {{"AXSize", {-25211, "disabled"}}};
    EXPECT_TRUE(hasWindowOn(2)) << "no size";
    ax.failures.clear();
    ax.trusted = false;
    EXPECT_TRUE(hasWindowOn(2)) << "no permission";
}

TEST_F(WindowMoverTest, SummonsTheMainWindowToTheMiddleOfTheDisplay) {
    const auto& other = ax.addWindow(running, {10, 20, 30, 40});
    const auto& window = ax.addWindow(running, {100, 100, 400, 300});

    EXPECT_TRUE(summonTo(2));

    EXPECT_EQ(window.frame, (Rect{2360, 418, 400, 300}));
    EXPECT_EQ(other.frame, (Rect{10, 20, 30, 40}));
    EXPECT_EQ(log.messages(), Lines{"summon pid 100 to display #2: ok"});
}

TEST_F(WindowMoverTest, LogsTheErrorOfASummonThatFails) {
    ax.addWindow(running, {100, 100, 400, 300});
    ax.failures["set AXPosition"] = {-25204, "cannot complete"};

    EXPECT_FALSE(summonTo(2));

    EXPECT_EQ(log.messages(), Lines{"summon pid 100 to display #2: AXError -25204"});
}

TEST_F(WindowMoverTest, SummonsNothingSilently) {
    EXPECT_FALSE(summonTo(2)) << "no window";
    ax.addWindow(running, {100, 100, 400, 300});
    EXPECT_FALSE(summonTo(7)) << "no such display";
    ax.trusted = false;
    EXPECT_FALSE(summonTo(2)) << "no permission";

    EXPECT_EQ(log.messages(), Lines{});
    EXPECT_EQ(ax.sets, Lines{});
}

TEST_F(WindowMoverTest, FillsByMovingResizingAndSettling) {
    const auto& window = ax.addWindow(running, {100, 100, 400, 300});

    EXPECT_TRUE(fillOn(2));

    EXPECT_EQ(ax.sets,
              (Lines{"AXPosition (1920, 56)", "AXSize (1280, 932)", "AXPosition (1920, 56)"}));
    EXPECT_EQ(window.frame, (Rect{1920, 56, 1280, 932}));
    EXPECT_EQ(log.messages(), Lines{"fill pid 100 on #2: ok"});
}

TEST_F(WindowMoverTest, LogsAllThreeErrorsOfAFillAndStillTriesEachStep) {
    ax.addWindow(running, {100, 100, 400, 300});
    ax.failures["set AXSize"] = {-25205, "unsupported"};

    EXPECT_FALSE(fillOn(2));

    EXPECT_EQ(ax.sets.size(), 3U);
    EXPECT_EQ(log.messages(), Lines{"fill pid 100 on #2: move=0 resize=-25205 settle=0"});
}

TEST_F(WindowMoverTest, FillsNothingSilently) {
    EXPECT_FALSE(fillOn(2)) << "no window";
    ax.addWindow(running, {100, 100, 400, 300});
    EXPECT_FALSE(fillOn(7)) << "no such display";
    EXPECT_FALSE(mover.fillMainWindow(running, 2, {}, context)) << "no displays";
    ax.trusted = false;
    EXPECT_FALSE(fillOn(2)) << "no permission";

    EXPECT_EQ(log.messages(), Lines{});
    EXPECT_EQ(ax.sets, Lines{});
}

TEST_F(WindowMoverTest, WithoutAMainWindowTakesTheFirstOfAll) {
    const auto& first = ax.addWindow(running, {100, 100, 400, 300});
    const auto& second = ax.addWindow(running, {100, 100, 200, 200});
    ax.failures["AXMainWindow"] = {-25212, "no value"};

    EXPECT_TRUE(summonTo(2));

    EXPECT_EQ(first.frame.x, 2360);
    EXPECT_EQ(second.frame.x, 100);
}

TEST_F(WindowMoverTest, IgnoresValuesThatAreNotElements) {
    const auto& first = ax.addWindow(running, {100, 100, 400, 300});
    ax.notElements = {"AXMainWindow", "AXWindows"};

    EXPECT_TRUE(summonTo(2));

    EXPECT_EQ(first.frame.x, 2360);
}

TEST_F(WindowMoverTest, GivesUpWhenTheWindowsCannotBeRead) {
    ax.addWindow(running, {100, 100, 400, 300});
    ax.failures = {{"AXMainWindow", {-25204, "no answer"}}, {"AXWindows", {-25204, "no answer"}}};

    EXPECT_FALSE(summonTo(2));
    EXPECT_TRUE(hasWindowOn(2));
}

TEST_F(WindowMoverTest, GivesEveryElementItsTimeOutBeforeAskingIt) {
    ax.addWindow(running, {100, 100, 400, 300});

    fillOn(2);
    summonTo(2);
    ax.failures["AXMainWindow"] = {-25212, "no value"};
    summonTo(1);

    EXPECT_EQ(ax.callsWithoutTimeout, 0);
    EXPECT_EQ(ax.timeouts, std::vector<float>(6, 0.5F));
}

TEST_F(WindowMoverTest, PlacesARunningAppAtOnce) {
    const auto& window = ax.addWindow(running, {100, 100, 400, 300});
    platform.running.apps = {running};

    expectCentered();

    EXPECT_EQ(window.frame.x, 2360);
    EXPECT_EQ(log.messages(),
              (Lines{"placement armed for com.apple.mail on #2", "summon pid 100 to display #2: ok",
                     "placement done for com.apple.mail"}));
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(WindowMoverTest, PlacesAnAppOnceItsWindowIsThere) {
    expectCentered();
    platform.runLoop.advance(1);
    platform.running.apps = {running};
    platform.runLoop.advance(1);
    const auto& window = ax.addWindow(running, {100, 100, 400, 300});
    platform.runLoop.advance(0.39);
    EXPECT_EQ(window.frame.x, 100);

    platform.runLoop.advance(0.02);

    EXPECT_EQ(window.frame.x, 2360);
    EXPECT_EQ(log.count("placement done for com.apple.mail"), 1);
}

TEST_F(WindowMoverTest, FillsWithTheContextThatItWasArmedWith) {
    mover.expect(app.bundleID, 2, context);
    platform.running.apps = {running};
    const auto& window = ax.addWindow(running, {100, 100, 400, 300});

    platform.runLoop.advance(0.4);

    EXPECT_EQ(window.frame, (Rect{1920, 56, 1280, 932}));
}

// Behaviour: window-mover-4
TEST_F(WindowMoverTest, TriesAnAppWithoutAWindowTwentySixTimesAndGivesUpOnce) {
    platform.running.apps = {running};
    int tries = 0;
    const auto countTries = [&] { return static_cast<int>(ax.timeouts.size()); };

    expectCentered();
    platform.runLoop.advance(25 * 0.4 - 0.01);
    EXPECT_EQ(log.count("placement gave up on com.apple.mail"), 0);
    platform.runLoop.advance(0.01);
    tries = countTries();
    platform.runLoop.advance(10);

    EXPECT_EQ(tries, 26);
    EXPECT_EQ(countTries(), 26);
    EXPECT_EQ(log.messages(), (Lines{"placement armed for com.apple.mail on #2",
                                     "placement gave up on com.apple.mail"}));
}

TEST_F(WindowMoverTest, TheTimerEndsATickAfterTheLastPlacement) {
    expectCentered();
    platform.runLoop.advance(0.1);
    ax.addWindow(running, {100, 100, 400, 300});
    platform.running.apps = {running};

    platform.runLoop.advance(0.3);
    EXPECT_TRUE(mover.pending().empty());
    EXPECT_EQ(platform.runLoop.pendingTimers(), 1);
    platform.runLoop.advance(0.4);
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

// Behaviour: window-mover-5
TEST_F(WindowMoverTest, ArmingTwiceKeepsTheLaterPlacementAndRestartsTheCount) {
    expectCentered(1);
    platform.runLoop.advance(4);
    EXPECT_EQ(mover.pending().at(app.bundleID).attempts, 11);

    mover.expect(app.bundleID, 2, context);

    ASSERT_EQ(mover.pending().size(), 1U);
    EXPECT_EQ(mover.pending().at(app.bundleID),
              (WindowMover::Pending{.display = 2, .mode = context, .attempts = 1}));
    EXPECT_EQ(platform.runLoop.pendingTimers(), 1);
}

TEST_F(WindowMoverTest, TwoAppsKeepTheirOwnDisplays) {
    const AppRef notes = platform.install("com.apple.Notes", "Notes");
    expectCentered(2);
    mover.expect(notes.bundleID, 1, WindowMover::Center{});
    const auto runningNotes = FakePlatform::instanceOf(notes, 200);
    platform.running.apps = {running, runningNotes};
    const auto& mail = ax.addWindow(running, {100, 100, 400, 300});
    const auto& other = ax.addWindow(runningNotes, {2000, 100, 400, 300});

    platform.runLoop.advance(0.4);

    EXPECT_EQ(mail.frame.x, 2360);
    EXPECT_EQ(other.frame.x, 760);
}

TEST_F(WindowMoverTest, ArmsNothingWithoutThePermission) {
    ax.trusted = false;

    expectCentered();

    EXPECT_TRUE(mover.pending().empty());
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
    EXPECT_EQ(log.messages(), Lines{});
}

TEST_F(WindowMoverTest, GivesUpWhenThePermissionIsWithdrawnMeanwhile) {
    expectCentered();
    ax.trusted = false;
    platform.running.apps = {running};
    const auto& window = ax.addWindow(running, {100, 100, 400, 300});

    platform.runLoop.advance(20);

    EXPECT_EQ(window.frame.x, 100);
    EXPECT_EQ(log.messages().back(), "placement gave up on com.apple.mail");
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(WindowMoverTest, UsesTheDisplaysAsTheyAreAtTheTry) {
    expectCentered();
    platform.running.apps = {running};
    const auto& window = ax.addWindow(running, {100, 100, 400, 300});
    platform.screens.list.pop_back();
    platform.runLoop.advance(0.4);
    EXPECT_EQ(window.frame.x, 100);

    platform.screens.list.push_back(test::screenAt(2, {-1000, 0, 1000, 1080}));
    platform.runLoop.advance(0.4);

    EXPECT_EQ(window.frame, (Rect{-700, 390, 400, 300}));
}

TEST_F(WindowMoverTest, TriesNothingAfterItsEnd) {
    {
        WindowMover brief{platform.accessibility, platform.running, platform.screens,
                          platform.runLoop};
        brief.expect(app.bundleID, 2, WindowMover::Center{});
    }
    platform.running.apps = {running};
    const auto& window = ax.addWindow(running, {100, 100, 400, 300});

    platform.runLoop.advance(1);

    EXPECT_EQ(window.frame.x, 100);
}

}
}
