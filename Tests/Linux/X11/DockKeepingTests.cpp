#include "Panels/Keeping/CorrectionBudget.hpp"
#include "Panels/Keeping/DockKeeping.hpp"
#include "Panels/Keeping/DockStacking.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vireline::x11 {
namespace {

using namespace std::chrono_literals;
using DockKeeping::next;

CorrectionBudget::Time at(std::chrono::milliseconds time) {
    return CorrectionBudget::Time{time};
}

/// The number of corrections in a series that are carried out.
int taken(CorrectionBudget& budget, int count, std::chrono::milliseconds apart,
          std::chrono::milliseconds start = 0ms) {
    int number = 0;
    for (int i = 0; i < count; ++i)
        number += budget.take(at(start + i * apart)) ? 1 : 0;
    return number;
}

TEST(CorrectionBudget, GivesInToAnOpponent) {
    CorrectionBudget budget;
    EXPECT_EQ(taken(budget, 50, 100ms), CorrectionBudget::maximum);
}

TEST(CorrectionBudget, NeverRunsOutForOccasionalCorrections) {
    CorrectionBudget budget;
    EXPECT_EQ(taken(budget, 50, 1001ms), 50);
}

TEST(CorrectionBudget, StartsAgainAfterAQuietTimeOrWhenItIsRefilled) {
    CorrectionBudget budget;
    EXPECT_EQ(taken(budget, 20, 100ms), 8);
    EXPECT_FALSE(budget.take(at(1900ms + 1s)));
    EXPECT_EQ(taken(budget, 20, 100ms, 2901ms + 1s), 8);
    budget.refill();
    EXPECT_EQ(taken(budget, 20, 100ms, 6s), 8);
}

/// A window that is mapped and managed.
constexpr KeepingFacts wellKept{
    .hasManager = true, .isMapped = true, .isManaged = true, .looks = 1};

TEST(DockKeeping, LeavesADockToAWindowManagerThatKeepsIt) {
    EXPECT_EQ(next(Keeper::windowManager, wellKept), KeepingStep::rest);
}

TEST(DockKeeping, TakesOverADockThatDoesNotStayInPlace) {
    KeepingFacts facts = wellKept;
    facts.isDisplaced = true;
    EXPECT_EQ(next(Keeper::windowManager, facts), KeepingStep::takeOver);
}

TEST(DockKeeping, TakesOverADockThatIsShownButNeverManaged) {
    KeepingFacts facts = wellKept;
    facts.isManaged = false;
    facts.looksUnmanaged = 1;
    EXPECT_EQ(next(Keeper::windowManager, facts), KeepingStep::wait) << "it may be about to be";
    facts.looksUnmanaged = 2;
    EXPECT_EQ(next(Keeper::windowManager, facts), KeepingStep::takeOver);
}

TEST(DockKeeping, TakesOverADockThatIsMistreatedForTwoChecks) {
    KeepingFacts facts = wellKept;
    facts.looksMistreated = 1;
    EXPECT_EQ(next(Keeper::windowManager, facts), KeepingStep::wait) << "it may be in between";
    facts.looksMistreated = 2;
    EXPECT_EQ(next(Keeper::windowManager, facts), KeepingStep::takeOver);
    facts.hasManager = false;
    EXPECT_EQ(next(Keeper::windowManager, facts), KeepingStep::rest);
}

TEST(DockKeeping, GivesABusyWindowManagerTimeAndASecondChance) {
    KeepingFacts facts{.hasManager = true};
    std::vector<KeepingStep> steps;
    for (facts.looks = 1; facts.looks <= 12; ++facts.looks)
        steps.push_back(next(Keeper::windowManager, facts));
    std::vector<KeepingStep> expected(12, KeepingStep::wait);
    expected[5] = KeepingStep::showAgain;
    expected[11] = KeepingStep::takeOver;
    EXPECT_EQ(steps, expected);
}

TEST(DockKeeping, NeedsNoWindowManager) {
    EXPECT_EQ(next(Keeper::windowManager, {.isMapped = true, .looksUnmanaged = 9}),
              KeepingStep::rest);
    EXPECT_EQ(next(Keeper::windowManager, {.isMapped = true, .isDisplaced = true}),
              KeepingStep::rest);
}

TEST(DockKeeping, HandsADockBackToTheNextWindowManager) {
    KeepingFacts facts = wellKept;
    EXPECT_EQ(next(Keeper::program, facts), KeepingStep::rest);
    facts.isManagerNew = true;
    EXPECT_EQ(next(Keeper::program, facts), KeepingStep::handBack);
    facts.hasManager = false;
    EXPECT_EQ(next(Keeper::program, facts), KeepingStep::rest);
}

constexpr xcb_window_t dockID = 1;
constexpr StackedWindow dock{dockID, {760, 996, 400, 84}};
constexpr StackedWindow tiled{2, {10, 10, 1900, 1060}};
constexpr StackedWindow other{3, {700, 900, 300, 180}};
constexpr StackedWindow elsewhere{4, {0, 0, 700, 1080}};
constexpr StackedWindow film{5, {0, 0, 1920, 1080}, true};

std::optional<Restacking> restacking(const std::vector<StackedWindow>& stack) {
    return DockStacking::restacking(stack, dockID);
}

TEST(DockStacking, LeavesADockAloneThatNothingCovers) {
    EXPECT_EQ(restacking({dock}), std::nullopt);
    EXPECT_EQ(restacking({tiled, other, dock, elsewhere}), std::nullopt);
    EXPECT_EQ(restacking({tiled, other}), std::nullopt) << "it may be gone";
}

TEST(DockStacking, RaisesADockJustAboveTheHighestWindowOverIt) {
    EXPECT_EQ(restacking({dock, tiled}), (Restacking{tiled.id, true}));
    EXPECT_EQ(restacking({dock, tiled, other, elsewhere}), (Restacking{other.id, true}));
}

TEST(DockStacking, LeavesADockBelowAFullScreenWindow) {
    EXPECT_EQ(restacking({tiled, dock, film}), std::nullopt);
    EXPECT_EQ(restacking({dock, tiled, film}), std::nullopt);
    EXPECT_EQ(restacking({dock, film, other}), std::nullopt);
}

TEST(DockStacking, LowersADockThatIsAboveAFullScreenWindow) {
    EXPECT_EQ(restacking({tiled, film, dock}), (Restacking{film.id, false}));
    EXPECT_EQ(restacking({film, tiled, dock, other}), (Restacking{film.id, false}));
}

TEST(DockStacking, IgnoresAFullScreenWindowOnAnotherDisplay) {
    constexpr StackedWindow beside{6, {1920, 0, 1920, 1080}, true};
    EXPECT_EQ(restacking({dock, beside}), std::nullopt);
    EXPECT_EQ(restacking({beside, dock, tiled}), (Restacking{tiled.id, true}));
}

}
}
