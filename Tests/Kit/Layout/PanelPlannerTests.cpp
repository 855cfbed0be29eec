#include "ClientWindows/GuardMath.hpp"
#include "ClientWindows/WindowPlacement.hpp"
#include "Layout/DockEdge.hpp"
#include "Layout/PanelPlanner.hpp"
#include "Model/DockMetrics.hpp"
#include "Model/DockOrdering.hpp"
#include "Support/Printing.hpp"
#include "Support/Random.hpp"
#include "Support/Samples.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using PanelPlanner::desiredPanels;
using PanelPlanner::plan;
using PanelPlanner::Request;
using test::sampleHost;
using test::sampleScreen;
using Frames = std::map<std::uint32_t, Rect>;

constexpr Rect primaryFrame{0, 0, 1440, 900};
constexpr Rect wide{1440, 0, 1920, 1080};
constexpr auto allEdges = {DockPosition::bottom, DockPosition::left, DockPosition::right};

/// Five pinned tiles of 48 points.
Request fiveTiles(DockPosition position = DockPosition::bottom, double magnification = 1) {
    return {.counts = {.pinned = 5},
            .maxIconSize = 48,
            .position = position,
            .magnification = magnification,
            .hiddenDisplays = {}};
}

PanelSpec onlyPanel(const Rect& display, const Request& request) {
    const auto panels =
        desiredPanels(std::vector{sampleHost(1, primaryFrame), sampleScreen(2, display)}, request);
    EXPECT_EQ(panels.size(), 1U);
    return panels.front();
}

/// Displays at random positions around the primary one, including negative origins.
std::vector<ScreenSnapshot> randomScreens(test::Random& random) {
    std::vector<ScreenSnapshot> screens{sampleHost(1, primaryFrame)};
    for (int id = 2, last = random.integer(2, 6); id <= last; ++id) {
        const Rect frame{static_cast<double>(random.integer(-8000, 8000)),
                         static_cast<double>(random.integer(-8000, 8000)),
                         static_cast<double>(random.integer(480, 5120)),
                         static_cast<double>(random.integer(480, 2880))};
        screens.push_back(sampleScreen(static_cast<std::uint32_t>(id), frame));
    }
    return screens;
}

Request randomRequest(test::Random& random) {
    return {.counts = {.pinned = random.integer(0, 40), .unpinnedRunning = random.integer(0, 20)},
            .maxIconSize = static_cast<double>(random.integer(16, 64)),
            .position = static_cast<DockPosition>(random.integer(0, 2)),
            .magnification = random.boolean() ? 1.0 : random.real(1.2, 2.0),
            .hiddenDisplays = {}};
}

// Behaviour: panel-planner-1
TEST(PanelPlanner, GivesASingleDisplayNoPanel) {
    EXPECT_TRUE(desiredPanels(std::vector{sampleScreen(1, primaryFrame)}, fiveTiles()).empty());
    EXPECT_TRUE(
        desiredPanels(std::vector{sampleHost(1, primaryFrame)}, fiveTiles(DockPosition::left, 2))
            .empty());
    EXPECT_TRUE(desiredPanels({}, fiveTiles()).empty());
}

// Behaviour: panel-planner-2
TEST(PanelPlanner, GivesThePanelToTheDisplayWithoutTheDesktopsOwnDock) {
    const auto onSecond =
        desiredPanels(std::vector{sampleHost(1, primaryFrame), sampleScreen(2, wide)}, fiveTiles());
    ASSERT_EQ(onSecond.size(), 1U);
    EXPECT_EQ(onSecond.front().displayID, 2U);

    const auto onFirst =
        desiredPanels(std::vector{sampleScreen(1, primaryFrame), sampleHost(2, wide)}, fiveTiles());
    ASSERT_EQ(onFirst.size(), 1U);
    EXPECT_EQ(onFirst.front().displayID, 1U);
}

// Behaviour: panel-planner-3
TEST(PanelPlanner, LeavesAHiddenDisplayWithoutAPanel) {
    const std::vector screens{sampleHost(1, primaryFrame), sampleScreen(2, wide),
                              sampleScreen(3, {-1280, 0, 1280, 1024})};
    Request request = fiveTiles();
    request.hiddenDisplays = {2};

    const auto panels = desiredPanels(screens, request);

    ASSERT_EQ(panels.size(), 1U);
    EXPECT_EQ(panels.front().displayID, 3U);
}

TEST(PanelPlanner, KeepsTheOrderOfTheScreens) {
    const std::vector screens{sampleScreen(9, primaryFrame), sampleHost(4, wide),
                              sampleScreen(7, {-1280, 0, 1280, 1024}),
                              sampleScreen(2, {0, -1024, 1280, 1024})};
    std::vector<std::uint32_t> ids;
    for (const PanelSpec& panel : desiredPanels(screens, fiveTiles()))
        ids.push_back(panel.displayID);
    EXPECT_EQ(ids, (std::vector<std::uint32_t>{9, 7, 2}));
}

// Behaviour: panel-planner-4
TEST(PanelPlanner, CentresABottomPanelFourPointsAboveTheEdge) {
    const PanelSpec expected{.displayID = 2,
                             .frame = {1440 + 960 - 196.5, 4, 393, 84},
                             .availableWidth = 1900,
                             .position = DockPosition::bottom};
    EXPECT_EQ(onlyPanel(wide, fiveTiles()), expected);
}

TEST(PanelPlanner, CentresSidePanelsFourPointsInsideTheirEdge) {
    const Rect display{-1280, 300, 1280, 1024};
    const PanelSpec left = onlyPanel(display, fiveTiles(DockPosition::left));
    EXPECT_EQ(left.frame, (Rect{-1276, 812 - 196.5, 58, 393}));
    EXPECT_EQ(left.availableWidth, 1004);
    const PanelSpec right = onlyPanel(display, fiveTiles(DockPosition::right));
    EXPECT_EQ(right.frame, (Rect{-4 - 58, 812 - 196.5, 58, 393}));
}

TEST(PanelPlanner, MakesRoomForMagnification) {
    // At factor 2 the five tiles around the pointer grow by two and a half icons in total.
    const PanelSpec bottom = onlyPanel(wide, fiveTiles(DockPosition::bottom, 2));
    EXPECT_NEAR(bottom.frame.width, 393 + 2.5 * 48, 1e-9);
    EXPECT_NEAR(bottom.frame.midX(), wide.midX(), 1e-9);
    EXPECT_EQ(bottom.frame.height, 84 + 48);
    EXPECT_NEAR(bottom.availableWidth, 1900 - 2.5 * 48, 1e-9);

    const PanelSpec right = onlyPanel(wide, fiveTiles(DockPosition::right, 2));
    EXPECT_EQ(right.frame.width, 58 + 48);
    EXPECT_EQ(right.frame.maxX(), wide.maxX() - 4);
}

TEST(PanelPlanner, ShrinksIconsUntilTheMagnifiedStripFits) {
    Request request = fiveTiles(DockPosition::bottom, 2);
    request.counts.pinned = 38;
    // Besides their icons, 40 tiles take 6 × 40 + 1 + 14 = 255 points. That leaves 41 points per
    // tile in 1900, or 38 with room for two and a half tiles of 41.
    const PanelSpec panel = onlyPanel(wide, request);
    EXPECT_NEAR(panel.availableWidth, 1900 - 2.5 * 41, 1e-9);
    EXPECT_NEAR(panel.frame.width, 255 + 38 * 40 + 2.5 * 38, 1e-9);
    EXPECT_EQ(panel.frame.height, 84 + 38);
}

TEST(PanelPlanner, DoesNotThickenAPanelForLargerIcons) {
    Request request = fiveTiles();
    request.maxIconSize = 64;
    EXPECT_EQ(onlyPanel(wide, request).frame.height, 84);
}

// Behaviour: panel-planner-5
TEST(PanelPlanner, LetsAPanelOverflowADisplayTooNarrowForSmallIcons) {
    const Rect narrow{-200, 0, 200, 480};
    Request request = fiveTiles();
    request.counts.pinned = 20;

    const PanelSpec panel = onlyPanel(narrow, request);

    EXPECT_EQ(panel.availableWidth, 180);
    EXPECT_EQ(panel.frame.width, DockOrdering::stripWidth({20, 0, 2}, 16));
    EXPECT_GT(panel.frame.width, panel.availableWidth);
    EXPECT_EQ(panel.frame.midX(), narrow.midX());
}

TEST(PanelPlanner, FallsBackToAPlaceholderWhereTheLengthIsNotPositive) {
    Request request = fiveTiles();
    request.maxIconSize = -100;
    EXPECT_EQ(onlyPanel(wide, request).frame.width, 640);
}

TEST(PanelPlanner, KeepsEveryPanelThatFitsInsideItsDisplay) {
    test::Random random{11};
    int fitting = 0;
    for (int round = 0; round < 3'000; ++round) {
        const auto screens = randomScreens(random);
        const Request request = randomRequest(random);
        const auto panels = desiredPanels(screens, request);
        ASSERT_EQ(panels.size(), screens.size() - 1);
        for (std::size_t i = 0; i < panels.size(); ++i) {
            const Rect& display = screens[i + 1].frame;
            const PanelSpec& panel = panels[i];
            const auto along = DockEdge::global(panel.position).along(display);
            const auto panelAlong = DockEdge::global(panel.position).along(panel.frame);
            EXPECT_NEAR(panelAlong.middle(), along.middle(), 1e-9);
            const DockOrdering::Counts& counts = request.counts;
            if (DockOrdering::stripWidth(counts, 16) > panel.availableWidth)
                continue;
            ++fitting;
            EXPECT_GE(panelAlong.start, along.start + 10 - 1e-9) << panel;
            EXPECT_LE(panelAlong.end(), along.end() - 10 + 1e-9) << panel;
            EXPECT_EQ(display.united(panel.frame), display) << panel;
        }
    }
    EXPECT_GT(fitting, 3'000);
}

TEST(PanelPlanner, PutsTheSliverOnTheVeryEdgeOfEveryDisplay) {
    test::Random random{12};
    for (int round = 0; round < 1'000; ++round) {
        const auto screens = randomScreens(random);
        const auto panels = desiredPanels(screens, randomRequest(random));
        for (std::size_t i = 0; i < panels.size(); ++i) {
            const PanelSpec& panel = panels[i];
            const Rect sliver = panel.collapsedFrame();
            const auto across = DockEdge::global(panel.position).across(screens[i + 1].frame);
            const auto sliverAcross = DockEdge::global(panel.position).across(sliver);
            const bool isRight = panel.position == DockPosition::right;
            EXPECT_NEAR(isRight ? sliverAcross.end() : sliverAcross.start,
                        isRight ? across.end() : across.start, 1e-9);
            EXPECT_EQ(sliverAcross.length, 4);
            EXPECT_EQ(DockEdge::global(panel.position).along(sliver),
                      DockEdge::global(panel.position).along(panel.frame));
        }
    }
}

// Behaviour: panel-planner-7
TEST(PanelPlanner, CollapsesABottomPanelOntoTheDisplaysEdge) {
    const Rect display{-800, -600, 800, 600};
    const PanelSpec panel{.displayID = 2, .frame = {-600, -596, 393, 84}};
    EXPECT_EQ(panel.collapsedFrame(), (Rect{-600, display.minY(), 393, 4}));
}

TEST(PanelPlanner, CollapsesSidePanelsOntoTheDisplaysEdge) {
    const PanelSpec left{
        .displayID = 2, .frame = {104, 50, 58, 300}, .position = DockPosition::left};
    EXPECT_EQ(left.collapsedFrame(), (Rect{100, 50, 4, 300}));
    const PanelSpec right{
        .displayID = 2, .frame = {1000, 50, 58, 300}, .position = DockPosition::right};
    EXPECT_EQ(right.collapsedFrame(), (Rect{1058, 50, 4, 300}));
}

TEST(PanelPlanner, JoinsPanelAndSliverInTheHoverFrame) {
    for (const DockPosition position : allEdges) {
        const PanelSpec panel{.displayID = 2, .frame = {10, 20, 58, 300}, .position = position};
        EXPECT_EQ(panel.hoverFrame(), panel.frame.united(panel.collapsedFrame())) << position;
    }
    const PanelSpec bottom{.displayID = 2, .frame = {10, 4, 300, 84}};
    EXPECT_EQ(bottom.hoverFrame(), (Rect{10, 0, 300, 88}));
}

// Behaviour: panel-planner-6
TEST(PanelPlanner, PlansNothingWhereEveryPanelIsInPlace) {
    const std::vector screens{sampleHost(1, primaryFrame), sampleScreen(2, wide),
                              sampleScreen(3, {-1280, 0, 1280, 1024})};
    const auto desired = desiredPanels(screens, fiveTiles());
    const Frames existing{{2, desired[0].frame}, {3, desired[1].frame}};
    EXPECT_EQ(plan(desired, existing), PanelPlan{});
}

// Behaviour: panel-planner-6
TEST(PanelPlanner, DestroysThePanelsOfVanishedDisplaysInAscendingOrder) {
    const PanelSpec kept{.displayID = 4, .frame = {0, 4, 393, 84}};
    const Frames existing{{30, kept.frame}, {2, kept.frame}, {4, kept.frame}, {7, kept.frame}};
    EXPECT_EQ(plan(std::vector{kept}, existing),
              (PanelPlan{.create = {}, .destroy = {2, 7, 30}, .reframe = {}}));
}

TEST(PanelPlanner, CreatesAndReframesInTheOrderDesired) {
    const std::vector<PanelSpec> desired{{.displayID = 9, .frame = {0, 0, 1, 1}},
                                         {.displayID = 5, .frame = {1, 0, 1, 1}},
                                         {.displayID = 8, .frame = {2, 0, 1, 1}},
                                         {.displayID = 1, .frame = {3, 0, 1, 1}}};
    const Frames existing{{5, {0, 0, 2, 2}}, {9, {0, 0, 2, 2}}};
    EXPECT_EQ(plan(desired, existing), (PanelPlan{.create = {desired[2], desired[3]},
                                                  .destroy = {},
                                                  .reframe = {desired[0], desired[1]}}));
}

TEST(PanelPlanner, ReframesForTheSmallestMoveButNotForAnAvailableWidth) {
    PanelSpec spec{.displayID = 2, .frame = {10, 4, 393, 84}, .availableWidth = 900};
    const Frames existing{{2, spec.frame}};
    spec.availableWidth = 800;
    spec.position = DockPosition::left;
    EXPECT_EQ(plan(std::vector{spec}, existing), PanelPlan{});
    spec.frame.x += 1e-9;
    EXPECT_EQ(plan(std::vector{spec}, existing).reframe, std::vector{spec});
}

TEST(PanelPlanner, LeadsFromAnyPanelsToTheDesiredOnes) {
    test::Random random{13};
    for (int round = 0; round < 1'000; ++round) {
        const auto before = desiredPanels(randomScreens(random), randomRequest(random));
        const auto desired = desiredPanels(randomScreens(random), randomRequest(random));
        Frames panels;
        for (const PanelSpec& panel : before)
            panels[panel.displayID] = panel.frame;

        const PanelPlan planned = plan(desired, panels);
        for (const std::uint32_t id : planned.destroy)
            EXPECT_EQ(panels.erase(id), 1U);
        for (const PanelSpec& panel : planned.create)
            EXPECT_TRUE(panels.emplace(panel.displayID, panel.frame).second);
        for (const PanelSpec& panel : planned.reframe)
            panels.at(panel.displayID) = panel.frame;

        EXPECT_EQ(plan(desired, panels), PanelPlan{});
        EXPECT_EQ(panels.size(), desired.size());
    }
}

TEST(PanelPlanner, KeepsRoomForTheLeastMagnification) {
    const double room = onlyPanel(wide, fiveTiles()).availableWidth;
    const PanelSpec magnified = onlyPanel(wide, fiveTiles(DockPosition::bottom, 1.001));

    EXPECT_LT(magnified.availableWidth, room);
    EXPECT_GT(magnified.availableWidth, room - 1);
}

/// A panel of another program at the bottom of the wide display.
constexpr double otherPanel = 40;

std::vector<ScreenSnapshot> withAPanelOnEach() {
    return {sampleHost(1, primaryFrame), sampleHost(2, wide, otherPanel)};
}

TEST(PanelPlanner, StandsBeyondAPanelThatAnotherProgramHasAtTheEdge) {
    const auto screens = withAPanelOnEach();
    const PanelSpec panel = desiredPanels(screens, fiveTiles()).at(0);
    PanelSpec expected = onlyPanel(wide, fiveTiles());
    expected.frame.y += otherPanel;
    EXPECT_EQ(panel, expected);
    EXPECT_EQ(panel.collapsedFrame().minY(), screens[1].visibleFrame.minY());
    EXPECT_EQ(panel.hoverFrame().minY(), screens[1].visibleFrame.minY());

    ScreenSnapshot sides = sampleScreen(2, wide);
    sides.visibleFrame.x += 30;
    sides.visibleFrame.width -= 30 + 50;
    const std::vector besides{sampleHost(1, primaryFrame), sides};
    const PanelSpec left = desiredPanels(besides, fiveTiles(DockPosition::left)).at(0);
    EXPECT_EQ(left.frame.minX(), wide.minX() + 30 + 4);
    EXPECT_EQ(left.collapsedFrame().minX(), wide.minX() + 30);
    const PanelSpec right = desiredPanels(besides, fiveTiles(DockPosition::right)).at(0);
    EXPECT_EQ(right.frame.maxX(), wide.maxX() - 50 - 4);
    EXPECT_EQ(right.collapsedFrame().maxX(), wide.maxX() - 50);
}

TEST(PanelPlanner, IgnoresPanelsAtOtherEdgesThatTheDockDoesNotReach) {
    ScreenSnapshot screen = sampleHost(2, wide, otherPanel);
    screen.visibleFrame.height -= 25;
    screen.visibleFrame.x += 30;
    screen.visibleFrame.width -= 30;
    const std::vector screens{sampleHost(1, primaryFrame), screen};
    const PanelSpec bottom = desiredPanels(screens, fiveTiles()).at(0);
    EXPECT_EQ(bottom.frame.midX(), wide.midX());
    const PanelSpec right = desiredPanels(screens, fiveTiles(DockPosition::right)).at(0);
    EXPECT_EQ(right, onlyPanel(wide, fiveTiles(DockPosition::right)));
}

TEST(PanelPlanner, FitsALongDockBetweenThePanelsAtItsEnds) {
    ScreenSnapshot screen = sampleHost(2, wide, otherPanel);
    screen.visibleFrame.x += 100;
    screen.visibleFrame.width -= 100;
    Request request = fiveTiles();
    request.counts.pinned = 38;
    const PanelSpec panel =
        desiredPanels(std::vector{sampleHost(1, primaryFrame), screen}, request).at(0);
    EXPECT_EQ(panel.availableWidth, 1820 - 20);
    EXPECT_EQ(panel.frame.midX(), screen.visibleFrame.midX());
    EXPECT_GE(panel.frame.minX(), screen.visibleFrame.minX() + 10);

    request.position = DockPosition::right;
    const PanelSpec side =
        desiredPanels(std::vector{sampleHost(1, primaryFrame), screen}, request).at(0);
    EXPECT_GE(side.frame.minY(), wide.minY() + otherPanel + 10);
}

TEST(PanelPlanner, StaysAtTheEdgeWhereOnlyAMenuBarOrAHiddenDockTakesRoom) {
    ScreenSnapshot screen = sampleHost(2, wide, 4);
    screen.visibleFrame.height -= 25;
    const std::vector screens{sampleHost(1, primaryFrame), screen};
    EXPECT_EQ(desiredPanels(screens, fiveTiles()).at(0), onlyPanel(wide, fiveTiles()));
    const Request left = fiveTiles(DockPosition::left);
    EXPECT_EQ(desiredPanels(screens, left).at(0), onlyPanel(wide, left));
}

TEST(PanelPlanner, LeavesADockBeyondAPanelInReachOfThePointerAndFreeOfFilledWindows) {
    const auto screens = withAPanelOnEach();
    const PanelSpec panel = desiredPanels(screens, fiveTiles()).at(0);
    const Rect sliver = panel.collapsedFrame();
    const Point atSliver{sliver.midX(), primaryFrame.height - sliver.midY()};
    EXPECT_FALSE(GuardMath::clamp(atSliver, GuardMath::guardZones(screens, {2})));

    const auto filled = WindowPlacement::fillFrame(
        screens[1], screens, {.dockReserved = true, .magnification = 1, .configuredIconSize = 48});
    const double bottomOfWindow = primaryFrame.height - (filled.position.y + filled.size.height);
    EXPECT_GE(bottomOfWindow, panel.frame.maxY());
    EXPECT_EQ(bottomOfWindow - panel.frame.maxY(), 4);
}

}
}
