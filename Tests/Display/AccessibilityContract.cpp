/// What every Accessibility port does with windows, the fake and the real one alike.
#include "Display/AccessibilityContract.hpp"

#include "VirtualDesktop/Processes/ProcessFigures.hpp"

#include <unistd.h>

#include <chrono>

namespace vireline {
namespace {

using contract::AccessibilityContract;
using contract::Desktops;
using contract::fails;
using contract::Kind;
using contract::Names;
using contract::Program;

TYPED_TEST_SUITE(AccessibilityContract, Desktops, Names);

TYPED_TEST(AccessibilityContract, IsTrustedForAsLongAsThePermissionIsThere) {
    EXPECT_TRUE(this->port.isTrusted());

    this->withdrawPermission();
    EXPECT_TRUE(this->eventually([&] { return !this->port.isTrusted(); }));

    this->grantPermission();
    EXPECT_TRUE(this->eventually([&] { return this->port.isTrusted(); }));
}

TYPED_TEST(AccessibilityContract, AsksForThePermissionAndTellsWhetherItIsThere) {
    EXPECT_TRUE(this->port.isTrustedWithPrompt());

    this->withdrawPermission();

    EXPECT_TRUE(this->eventually([&] { return !this->port.isTrustedWithPrompt(); }));
}

TYPED_TEST(AccessibilityContract, TellsWhetherThisDesktopLetsWindowsBeMoved) {
    EXPECT_TRUE(this->port.canMoveWindows());

    this->loseTheAbilityToMoveWindows();
    EXPECT_TRUE(this->eventually([&] { return !this->port.canMoveWindows(); }));
    EXPECT_FALSE(this->port.isTrusted());

    this->regainTheAbilityToMoveWindows();
    EXPECT_TRUE(this->eventually([&] { return this->port.canMoveWindows(); }));
    EXPECT_TRUE(this->port.isTrusted());
}

TYPED_TEST(AccessibilityContract, AnnouncesThatWindowsCanBeMovedNoMoreAndThatTheyCanAgain) {
    // One that has just started may announce once what it finds.
    std::vector<bool> answers;
    const Subscription observer =
        this->port.observeManager([&] { answers.push_back(this->port.canMoveWindows()); });
    int heardByAnother = 0;
    Subscription another = this->port.observeManager([&] { ++heardByAnother; });

    this->loseTheAbilityToMoveWindows();
    EXPECT_TRUE(this->eventually([&] { return !answers.empty() && !answers.back(); }));
    EXPECT_GT(heardByAnother, 0);

    another.reset();
    heardByAnother = 0;
    this->regainTheAbilityToMoveWindows();
    EXPECT_TRUE(this->eventually([&] { return answers.back(); }));
    EXPECT_EQ(heardByAnother, 0);
}

TYPED_TEST(AccessibilityContract, ListsTheWindowsOldestFirst) {
    const Program program = this->runPlaced(3);

    this->activate(program, 1);

    for (std::size_t i = 0; i < 3; ++i) {
        const Rect frame = this->outerFrame(program, i);
        EXPECT_EQ((Point{frame.x, frame.y}), this->corner(i)) << i;
    }
    const auto windows = this->windows(program);
    ASSERT_EQ(windows.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_TRUE(this->isAt(*windows[i], this->corner(i))) << i;
}

TYPED_TEST(AccessibilityContract, TakesTheNewestWindowForTheMainOne) {
    const Program program = this->runPlaced(2);

    EXPECT_TRUE(this->eventually([&] { return this->isMain(program, 1); }));
}

TYPED_TEST(AccessibilityContract, TakesTheWindowThatWasActiveLastForTheMainOne) {
    const Program program = this->runPlaced(3);

    for (const std::size_t active : {2U, 0U, 1U}) {
        this->activate(program, active);
        EXPECT_TRUE(this->eventually([&] { return this->isMain(program, active); })) << active;
    }
}

TYPED_TEST(AccessibilityContract, TakesAnotherWindowForTheMainOneOnceThatIsClosed) {
    const Program program = this->runPlaced(2);
    this->activate(program, 0);

    this->close(program, 0);

    EXPECT_TRUE(this->eventually([&] { return this->isMain(program, 1); }));
    EXPECT_EQ(this->windows(program).size(), 1U);
}

TYPED_TEST(AccessibilityContract, KnowsTheMainWindowOfAnAppBehindOthers) {
    const Program behind = this->runPlaced(1);
    const Program before = this->run(1);

    EXPECT_TRUE(this->isMain(behind, 0));
    EXPECT_EQ(this->windows(behind).size(), 1U);
    EXPECT_EQ(this->windows(before).size(), 1U);
}

TYPED_TEST(AccessibilityContract, NeverTakesADialogForTheMainWindow) {
    const Program program = this->run(2, Kind::dialogs);

    EXPECT_TRUE(fails(this->port.mainWindow(*this->app(program))));
    EXPECT_EQ(this->windows(program).size(), 2U);
}

TYPED_TEST(AccessibilityContract, KnowsNoWindowsOfAnAppThatDoesNotRun) {
    this->run(1);
    const auto absent = this->port.application(4711, "absent");
    ASSERT_NE(absent, nullptr);
    this->port.setMessagingTimeout(*absent, 0.5F);

    EXPECT_TRUE(fails(this->port.mainWindow(*absent)));
    const auto windows = this->port.windows(*absent);
    ASSERT_TRUE(windows) << windows.error();
    EXPECT_TRUE(windows->empty());
}

TYPED_TEST(AccessibilityContract, KnowsNoWindowsOfAProcessThatHasEnded) {
    const Program program = this->run(2);
    const auto app = this->app(program);
    const auto window = this->window(program);
    ASSERT_TRUE(this->port.mainWindow(*app));

    this->end(program);

    EXPECT_TRUE(this->eventually([&] {
        const auto windows = this->port.windows(*app);
        return windows && windows->empty();
    }));
    EXPECT_TRUE(fails(this->port.mainWindow(*app)));
    EXPECT_TRUE(this->failsAtAll(*window));
}

TYPED_TEST(AccessibilityContract, GivesAnAppOfUnknownProcessAllOfItsWindows) {
    const Program program = this->run(2, Kind::ofUnknownProcess);

    EXPECT_EQ(this->windows(program).size(), 2U);
    EXPECT_EQ(this->windows({program.bundleID, 4711}).size(), 2U) << "of a wrong one as well";
    EXPECT_TRUE(this->port.mainWindow(*this->app(program)));
}

TYPED_TEST(AccessibilityContract, PutsAWindowThereAndReadsItsPositionBack) {
    const Program program = this->run(1);
    const auto window = this->window(program);
    const Size size = this->outerFrame(program, 0).size();

    // The second is on the display to the left, above the primary's upper edge.
    for (const Point corner : {Point{300, 200}, Point{-900, -100}}) {
        ASSERT_TRUE(this->port.setPosition(*window, corner));
        EXPECT_TRUE(this->comesTo(program, {corner.x, corner.y, size.width, size.height}));
        EXPECT_TRUE(this->isAt(*window, corner));
        EXPECT_EQ(this->port.size(*window).value_or(Size{}), size);
    }
}

TYPED_TEST(AccessibilityContract, ResizesAWindowInItsPlaceAndReadsItsSizeBack) {
    const Program program = this->runPlaced(1);
    const auto window = this->window(program);
    const Point corner = this->corner(0);

    for (const Size size : {Size{500, 400}, Size{350, 260}}) {
        ASSERT_TRUE(this->port.setSize(*window, size));
        EXPECT_TRUE(this->comesTo(program, {corner.x, corner.y, size.width, size.height}));
        EXPECT_EQ(this->port.size(*window).value_or(Size{}), size);
        EXPECT_TRUE(this->isAt(*window, corner));
    }
}

TYPED_TEST(AccessibilityContract, KeepsWhatWasSetBeforeItIsDone) {
    const Program program = this->run(1);
    const auto window = this->window(program);
    const Rect wanted{200, 120, 640, 420};

    ASSERT_TRUE(this->port.setPosition(*window, {wanted.x, wanted.y}));
    ASSERT_TRUE(this->port.setSize(*window, wanted.size()));
    ASSERT_TRUE(this->port.setPosition(*window, {wanted.x, wanted.y}));

    EXPECT_TRUE(this->comesTo(program, wanted));
    EXPECT_TRUE(this->isAt(*window, {wanted.x, wanted.y}));
    EXPECT_EQ(this->port.size(*window).value_or(Size{}), wanted.size());
}

TYPED_TEST(AccessibilityContract, MakesAWindowNoSmallerThanItCanBe) {
    const Program program = this->run(1);
    const auto window = this->window(program);
    this->setMinimumSize(program, 0, {420, 310});

    ASSERT_TRUE(this->port.setPosition(*window, {100, 150}));
    ASSERT_TRUE(this->port.setSize(*window, {200, 330}));

    EXPECT_TRUE(this->comesTo(program, {100, 150, 420, 330}));
    EXPECT_EQ(this->port.size(*window).value_or(Size{}), (Size{420, 330}));
}

TYPED_TEST(AccessibilityContract, KnowsAWindowByAnyElementOfIt) {
    const Program program = this->run(1);
    const auto main = this->port.mainWindow(*this->app(program));
    ASSERT_TRUE(main) << main.error();

    ASSERT_TRUE(this->port.setPosition(*this->window(program), {240, 160}));

    EXPECT_TRUE(this->eventually([&] { return this->isAt(**main, {240, 160}); }));
}

TYPED_TEST(AccessibilityContract, FailsWithAWindowThatIsGoneAndLeavesTheOthersAlone) {
    const Program program = this->runPlaced(2);
    const auto gone = this->window(program, 0);
    const auto other = this->window(program, 1);
    this->close(program, 0);

    this->port.setMessagingTimeout(*gone, 0.5F);

    EXPECT_TRUE(this->failsAtAll(*gone));
    EXPECT_TRUE(this->isAt(*other, this->corner(1)));
}

TYPED_TEST(AccessibilityContract, FailsIfThereIsNoAnswerWithinTheTimeout) {
    const Program program = this->runPlaced(1);
    const auto window = this->window(program);
    // Far below the default timeout.
    this->port.setMessagingTimeout(*window, 0.01F);

    this->stopAnswering();
    const desktop::UndisturbedTime time{{getpid()}};
    const auto position = this->port.position(*window);
    const auto elapsed = time.elapsed();
    const auto isMoved = this->port.setPosition(*window, {300, 300});
    this->answerAgain();

    EXPECT_TRUE(fails(position));
    EXPECT_TRUE(fails(isMoved));
    EXPECT_LT(elapsed, std::chrono::milliseconds{400});
    EXPECT_TRUE(this->eventually([&] { return this->isAt(*window, this->corner(0)); }));
}

}
}
