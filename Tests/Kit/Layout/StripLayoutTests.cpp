#include "Layout/StripLayout.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace vireline {
namespace {

/// A dock exactly as long as its strip at rest.
StripLayout::Request bottomDock(int pinned, int running) {
    StripLayout::Request request;
    request.counts.pinned = pinned;
    request.counts.unpinnedRunning = running;
    const double length = DockOrdering::stripWidth(request.counts, request.iconSize);
    request.edge = {DockPosition::bottom, {length, 84}};
    return request;
}

// Behaviour: dock-strip-1
TEST(StripLayout, AStripWithoutAppsHoldsTheUtilityTilesBehindOneSeparator) {
    const StripFrames frames = StripLayout::layout(bottomDock(0, 0));

    ASSERT_EQ(frames.tiles.size(), 2U);
    EXPECT_EQ(frames.separators.size(), 1U);
    EXPECT_EQ(frames.tiles[0].icon.midX(), 7 + 7 + 22.0);
    EXPECT_EQ(frames.separators[0].minX(), 7);
    EXPECT_EQ(frames.separators[0].width, 1);
    EXPECT_DOUBLE_EQ(frames.separators[0].height, 58 * 0.6);
    EXPECT_DOUBLE_EQ(frames.separators[0].maxY(), 84);
}

TEST(StripLayout, IconsStandInTheMiddleOfABottomStripWithTheirDotsBelow) {
    const StripFrames frames = StripLayout::layout(bottomDock(1, 1));

    EXPECT_EQ(frames.glass, (Rect{0, 26, frames.glass.width, 58}));
    EXPECT_EQ(frames.tiles[0].icon, (Rect{7, 33, 44, 44}));
    EXPECT_EQ(frames.tiles[0].dot, (Rect{27, 78.5, 4, 4}));
    EXPECT_EQ(frames.labelZone, (Rect{0, 0, frames.glass.width, 26}));
}

TEST(StripLayout, SeparatorsStandBeforeTheRunningAndTheUtilityGroup) {
    const StripFrames frames = StripLayout::layout(bottomDock(2, 1));

    ASSERT_EQ(frames.separators.size(), 2U);
    EXPECT_EQ(frames.separators[0].minX(), frames.tiles[1].icon.maxX() + 6);
    EXPECT_EQ(frames.separators[0].maxX(), frames.tiles[2].icon.minX() - 6);
    EXPECT_EQ(frames.separators[1].minX(), frames.tiles[2].icon.maxX() + 6);
    EXPECT_EQ(frames.glass.maxX(), frames.tiles.back().icon.maxX() + 7);
}

TEST(StripLayout, SideDocksPutTheDotOnTheScreensSide) {
    StripLayout::Request request = bottomDock(1, 0);
    const double length = request.edge.view.width;
    request.edge = {DockPosition::left, {58, length}};
    const TileFrames left = StripLayout::layout(request).tiles[0];
    request.edge.position = DockPosition::right;
    const TileFrames right = StripLayout::layout(request).tiles[0];

    EXPECT_EQ(left.icon, (Rect{7, 7, 44, 44}));
    EXPECT_EQ(left.dot, (Rect{1.5, 27, 4, 4}));
    EXPECT_EQ(right.icon, (Rect{7, 7, 44, 44}));
    EXPECT_EQ(right.dot, (Rect{58 - 5.5, 27, 4, 4}));
}

// Behaviour: tiles-7
TEST(StripLayout, ATileWhoseFolderIsUnknownIsLeftOutAndTheStripCloses) {
    StripLayout::Request request = bottomDock(1, 0);
    const StripFrames all = StripLayout::layout(request);
    request.hasDownloads = false;
    const StripFrames trashAlone = StripLayout::layout(request);
    request.hasTrash = false;
    const StripFrames none = StripLayout::layout(request);

    ASSERT_EQ(trashAlone.tiles.size(), 2U);
    EXPECT_EQ(trashAlone.tiles[0].icon, all.tiles[0].icon);
    EXPECT_EQ(trashAlone.tiles[1].icon, all.tiles[1].icon);
    EXPECT_EQ(trashAlone.glass.width, all.glass.width - 50);
    ASSERT_EQ(none.tiles.size(), 1U);
    EXPECT_EQ(none.separators[0].minX(), none.tiles[0].icon.maxX() + 6);
}

TEST(StripLayout, ThePointUnderThePointerStaysUnderItWhileTheStripGrows) {
    StripLayout::Request request = bottomDock(5, 0);
    request.edge.view = {700, 128};
    request.magnification = 2;
    const TileFrames atRest = StripLayout::layout(request).tiles[3];
    request.cursorAxis = atRest.icon.midX();
    const TileFrames grown = StripLayout::layout(request).tiles[3];

    EXPECT_DOUBLE_EQ(grown.icon.midX(), atRest.icon.midX());
    EXPECT_DOUBLE_EQ(grown.icon.width, 88);
    EXPECT_DOUBLE_EQ(grown.icon.maxY(), atRest.icon.maxY());
}

// Behaviour: dock-strip-5
TEST(StripLayout, AGrownStripLongerThanItsContainerLeavesNoGapAtEitherEnd) {
    StripLayout::Request request = bottomDock(8, 0);
    request.magnification = 2;
    for (int cursor = 0; cursor <= request.edge.length(); ++cursor) {
        request.cursorAxis = cursor;
        const Rect glass = StripLayout::layout(request).glass;
        EXPECT_LE(glass.minX(), 1e-9);
        EXPECT_GE(glass.maxX(), request.edge.length() - 1e-9);
    }
}

TEST(StripLayout, MagnifiedTilesNeverOverlapAndStayInOrder) {
    StripLayout::Request request = bottomDock(10, 3);
    request.edge.view = {1100, 128};
    request.magnification = 1.8;
    for (int cursor = 0; cursor <= 1100; cursor += 7) {
        request.cursorAxis = cursor;
        const auto tiles = StripLayout::layout(request).tiles;
        for (std::size_t i = 1; i < tiles.size(); ++i) {
            EXPECT_GE(tiles[i].icon.minX(), tiles[i - 1].icon.maxX() + 6 - 1e-9);
        }
    }
}

TEST(StripLayout, TheLabelStandsOnTheStripAndAsMuchHigherAsItsTileHasGrown) {
    StripLayout::Request request = bottomDock(3, 0);
    request.edge.view.height = 84 + 44;
    request.magnification = 2;
    const double length = request.edge.length();
    EXPECT_EQ(StripLayout::labelZone(StripLayout::layout(request), request.edge, 1),
              (Rect{0, 128 - 58 - 26, length, 26}));

    request.cursorAxis = 79;
    const StripFrames frames = StripLayout::layout(request);
    ASSERT_EQ(frames.tiles[1].icon.width, 88);
    EXPECT_EQ(StripLayout::labelZone(frames, request.edge, 1), (Rect{0, 0, length, 26}));
    EXPECT_EQ(StripLayout::labelZone(frames, request.edge, 4),
              (Rect{0, 128 - 58 - 26, length, 26}));
}

TEST(StripLayout, IconsLargerThanTheViewReachBeyondItAwayFromTheScreensEdge) {
    StripLayout::Request request = bottomDock(2, 0);
    request.iconSize = 64;
    const StripFrames frames = StripLayout::layout(request);

    EXPECT_EQ(frames.glass.maxY(), 84);
    EXPECT_EQ(frames.tiles[0].icon.maxY(), 84 - 7);
    EXPECT_EQ(frames.labelZone.minY(), 84 - 78 - 26);
}

TEST(StripLayout, SeparatorsStandOnTheScreensSide) {
    StripLayout::Request request = bottomDock(1, 0);
    const double length = request.edge.view.width;
    request.edge = {DockPosition::left, {58, length}};
    EXPECT_EQ(StripLayout::layout(request).separators[0], (Rect{0, 57, 58 * 0.6, 1}));
    request.edge.position = DockPosition::right;
    EXPECT_EQ(StripLayout::layout(request).separators[0], (Rect{58 - 58 * 0.6, 57, 58 * 0.6, 1}));
}

TEST(StripLayout, AMenuOpensBesideTheStripAndWhatHasGrownOutOfIt) {
    using Side = MenuPlace::Side;
    StripLayout::Request request = bottomDock(3, 0);
    const double length = request.edge.length();
    const auto place = [&] {
        return StripLayout::menuPlace(StripLayout::layout(request), request.edge, 79);
    };
    EXPECT_EQ(place(), (MenuPlace{{79, 84 - 58 - 4}, Side::above}));
    request.edge = {DockPosition::left, {58, length}};
    EXPECT_EQ(place(), (MenuPlace{{62, 79}, Side::rightOf}));
    request.edge = {DockPosition::right, {58, length}};
    EXPECT_EQ(place(), (MenuPlace{{-4, 79}, Side::leftOf}));

    request.edge = {DockPosition::bottom, {length, 128}};
    request.magnification = 2;
    request.cursorAxis = 79;
    EXPECT_EQ(place(), (MenuPlace{{79, 128 - 7 - 88 - 4}, Side::above}));
}

TEST(MenuPlace, LaysTheMiddleOfTheNearestSideAtThePoint) {
    using Side = MenuPlace::Side;
    EXPECT_EQ((MenuPlace{{100, 200}, Side::above}.corner({40, 30})), (Point{80, 170}));
    EXPECT_EQ((MenuPlace{{100, 200}, Side::rightOf}.corner({40, 30})), (Point{100, 185}));
    EXPECT_EQ((MenuPlace{{100, 200}, Side::leftOf}.corner({40, 30})), (Point{60, 185}));
}

TEST(StripLayout, TheOverhangIsWhatIsDrawnBeyondTheView) {
    struct Case {
        DockPosition position;
        double iconSize;
        double magnification;
        double thickness;
        double overhang;
    };
    // At the bottom the label extends farthest, at the sides a dragged tile that bobs.
    for (const Case& tried :
         {Case{DockPosition::bottom, 32, 1, 84, 0}, Case{DockPosition::bottom, 44, 1, 84, 0},
          Case{DockPosition::bottom, 44, 2, 128, 0}, Case{DockPosition::bottom, 64, 1, 84, 20},
          Case{DockPosition::bottom, 64, 2, 148, 20}, Case{DockPosition::left, 32, 1, 58, 0},
          Case{DockPosition::left, 44, 1, 58, 7}, Case{DockPosition::left, 44, 2, 102, 9},
          Case{DockPosition::right, 64, 1, 58, 28}, Case{DockPosition::right, 64, 2, 122, 31}}) {
        StripLayout::Request request;
        request.iconSize = tried.iconSize;
        request.magnification = tried.magnification;
        const bool isBottom = tried.position == DockPosition::bottom;
        request.edge = {tried.position,
                        isBottom ? Size{400, tried.thickness} : Size{tried.thickness, 400}};
        EXPECT_EQ(StripLayout::overhang(request), tried.overhang)
            << tried.iconSize << " x " << tried.magnification;
    }
}

TEST(StripLayout, TheMagnificationBandReachesEightPointsBeyondTheStrip) {
    const Edge bottom{DockPosition::bottom, {400, 128}};
    EXPECT_TRUE(StripLayout::isInMagnificationBand({10, 128 - 66}, bottom, 44));
    EXPECT_FALSE(StripLayout::isInMagnificationBand({10, 128 - 66.5}, bottom, 44));
    const Edge left{DockPosition::left, {102, 400}};
    EXPECT_TRUE(StripLayout::isInMagnificationBand({66, 10}, left, 44));
    EXPECT_FALSE(StripLayout::isInMagnificationBand({66.5, 10}, left, 44));
    const Edge right{DockPosition::right, {102, 400}};
    EXPECT_TRUE(StripLayout::isInMagnificationBand({36, 10}, right, 44));
    EXPECT_FALSE(StripLayout::isInMagnificationBand({35.5, 10}, right, 44));
}

TEST(StripLayout, AStripWithoutAnyTileHasItsSeparatorBehindThePadding) {
    StripLayout::Request request = bottomDock(0, 0);
    request.hasDownloads = false;
    request.hasTrash = false;
    const StripFrames frames = StripLayout::layout(request);

    EXPECT_TRUE(frames.tiles.empty());
    ASSERT_EQ(frames.separators.size(), 1U);
    EXPECT_EQ(frames.separators[0].minX() - frames.glass.minX(), 7);
}

TEST(StripLayout, AMissingUtilityTileMovesNoOtherThanTheOneBehindIt) {
    StripLayout::Request request = bottomDock(1, 2);
    const StripFrames all = StripLayout::layout(request);
    request.hasTrash = false;
    const StripFrames downloadsAlone = StripLayout::layout(request);

    ASSERT_EQ(downloadsAlone.tiles.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(downloadsAlone.tiles[i].icon, all.tiles[i].icon);
    request.hasTrash = true;
    request.hasDownloads = false;
    EXPECT_EQ(StripLayout::layout(request).tiles, downloadsAlone.tiles);
}

TEST(StripLayout, ATileTakesThePointerFromItsIconToTheDisplaysEdge) {
    EXPECT_EQ(StripLayout::layout(bottomDock(1, 0)).tiles[0].hit, (Rect{7, 33, 44, 51}));
}

TEST(StripLayout, TellsHowLargeAnIconCanGrow) {
    StripLayout::Request request = bottomDock(1, 0);
    request.magnification = 1.5;
    EXPECT_EQ(StripLayout::layout(request).magnifiedIconSize, 66);
    request.magnification = 0.5;
    EXPECT_EQ(StripLayout::layout(request).magnifiedIconSize, 44);
}

TEST(StripLayout, TheGlassAtRestIsInTheMiddleWhateverIsMagnified) {
    StripLayout::Request request = bottomDock(2, 0);
    const double length = request.edge.view.width;
    request.edge.view = {length + 100, 128};
    request.magnification = 2;
    request.cursorAxis = 60;

    const StripFrames frames = StripLayout::layout(request);

    EXPECT_EQ(frames.glassAtRest, (Rect{50, 128 - 58, length, 58}));
    EXPECT_GT(frames.glass.width, length);
}

}
}
