#include "Support/FakeApplications.hpp"
#include "Views/Contents/DockScene.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireline {
namespace {

constexpr Curve listChange{0.2, Easing::easeInOut};
constexpr Edge bottom{DockPosition::bottom, {215, 84}};

/// Two tiles with a separator between them, at rest.
struct DockSceneTest : testing::Test {
    StripFrames frames{.glass = {0, 26, 115, 58},
                       .glassAtRest = {0, 26, 115, 58},
                       .tiles = {{{7, 33, 44, 44}, {27, 78.5, 4, 4}, {7, 33, 44, 51}},
                                 {{64, 33, 44, 44}, {84, 78.5, 4, 4}, {64, 33, 44, 51}}},
                       .iconSize = 44,
                       .magnifiedIconSize = 66,
                       .separators = {{57, 38, 1, 34.8}},
                       .labelZone = {0, 0, 215, 26}};
    ImageHandle image = std::make_shared<test::FakeImage>("Mail", Size{44, 44});
    DockLook look{.edge = bottom,
                  .frames = frames,
                  .tiles = {{.serial = 3, .image = image}, {.serial = 4, .image = image}},
                  .label = {}};

    [[nodiscard]] SceneNode node(NodeID::Part part, std::uint32_t owner = 0) const {
        const Scene scene = DockScene::expanded(look);
        return *std::ranges::find(scene.nodes, NodeID{part, owner}, &SceneNode::id);
    }
    [[nodiscard]] SceneNode icon() const { return node(NodeID::Part::icon, 3); }
};

TEST_F(DockSceneTest, ATileAtRestIsItsImageAndADotThatDoesNotShow) {
    const SceneNode expectedIcon{
        .id = {NodeID::Part::icon, 3},
        .frame = {7, 33, 44, 44},
        .content = ImageNode{image, 44, 66},
        .anchor = Rect{7, 33, 44, 49.5}.center(),
        .motion = {.slide = Curve{0.15, Easing::easeInOut},
                   .bounce = Curve{0.2, Easing::easeOut},
                   .scale = Curve{0.1, Easing::easeOut},
                   .presence = listChange},
    };
    SceneNode expectedDot = expectedIcon;
    expectedDot.id.part = NodeID::Part::dot;
    expectedDot.frame = {27, 78.5, 4, 4};
    expectedDot.content = DotNode{};
    expectedDot.opacity = 0;
    expectedDot.motion.opacity = Curve{0.15, Easing::easeOut};

    EXPECT_EQ(icon(), expectedIcon);
    EXPECT_EQ(node(NodeID::Part::dot, 3), expectedDot);
}

TEST_F(DockSceneTest, TheGlassLiesBehindTheSeparatorsAndTheTiles) {
    const Scene scene = DockScene::expanded(look);

    ASSERT_EQ(scene.nodes.size(), 6U);
    const SceneNode glass{.id = {NodeID::Part::strip},
                          .frame = frames.glass,
                          .content = GlassNode{18},
                          .motion = {.presence = listChange}};
    const SceneNode separator{.id = {NodeID::Part::separator, 0},
                              .frame = frames.separators[0],
                              .content = SeparatorNode{0.5},
                              .motion = {.presence = listChange}};
    EXPECT_EQ(scene.nodes[0], glass);
    EXPECT_EQ(scene.nodes[1], separator);
}

TEST_F(DockSceneTest, OfTwoSeparatorsTheOneBeforeTheUtilityTilesStaysItself) {
    frames.separators.insert(frames.separators.begin(), Rect{50, 38, 1, 34.8});

    EXPECT_EQ(node(NodeID::Part::separator, 0).frame.x, 57);
    EXPECT_EQ(node(NodeID::Part::separator, 1).frame.x, 50);
}

TEST_F(DockSceneTest, APressedTileShrinksADraggedAndATargetedOneGrow) {
    look.tiles[0].isPulsing = true;
    EXPECT_EQ(icon().scale, 0.92);
    look.tiles[0].isPulsing = false;

    look.tiles[0].isBeingDragged = true;
    EXPECT_EQ(icon().scale, 1.08);
    EXPECT_EQ(icon().motion.slide, std::nullopt);
    look.tiles[0].isBeingDragged = false;

    look.tiles[0].isDropTargeted = true;
    EXPECT_EQ(icon().scale, 1.1);
    EXPECT_EQ(icon().motion.scale, (Curve{0.12, Easing::easeOut}));
}

TEST_F(DockSceneTest, AnImageMayGrowAsFarAsADropMakesIt) {
    frames.magnifiedIconSize = 44;

    EXPECT_DOUBLE_EQ(std::get<ImageNode>(icon().content).largestSide, 44 * 1.1);
}

TEST_F(DockSceneTest, ALaunchingAppBouncesAwayFromTheEdge) {
    look.tiles[0].isLaunching = true;

    EXPECT_EQ(icon().bounce, (Point{0, -12}));
    EXPECT_EQ(icon().motion.bounce, (Curve{0.3, Easing::easeInOut, true}));
}

TEST_F(DockSceneTest, ATileLeansAsideAlongTheDock) {
    look.tiles[0].slide = 30;
    EXPECT_EQ(icon().slide, (Point{30, 0}));
    look.settles = true;
    EXPECT_EQ(icon().motion.slide, (Curve{0.2, Easing::easeInOut}));
}

TEST_F(DockSceneTest, ANewListMovesEverythingToItsPlace) {
    look.listChanged = true;

    for (const SceneNode& moving : DockScene::expanded(look).nodes)
        EXPECT_EQ(moving.motion.frame, listChange);
}

TEST_F(DockSceneTest, TheDraggedTileIsOnTop) {
    look.tiles[0].isBeingDragged = true;

    const auto nodes = DockScene::expanded(look).nodes;
    EXPECT_EQ(nodes.back().id, (NodeID{NodeID::Part::dot, 3}));
    EXPECT_EQ(nodes.size(), 6U);
}

TEST_F(DockSceneTest, ALabelFadesInOverItsZone) {
    look.label = LabelLook{1, "Mail"};

    const SceneNode label{.id = {NodeID::Part::label, 4},
                          .frame = frames.labelZone,
                          .content = LabelNode{"Mail", 12, {9, 3}},
                          .motion = {.presence = Curve{0.12, Easing::easeOut}}};
    EXPECT_EQ(node(NodeID::Part::label, 4), label);
    EXPECT_EQ(DockScene::expanded(look).nodes.back(), label);
}

TEST_F(DockSceneTest, ALabelMovesOutAsItsTileGrows) {
    frames.tiles[0].icon = {-15, -11, 88, 88};
    look.label = LabelLook{0, "Mail"};
    EXPECT_EQ(node(NodeID::Part::label, 3).frame, (Rect{0, -44, 215, 26}));
    look.label = LabelLook{1, "Maps"};
    EXPECT_EQ(node(NodeID::Part::label, 4).frame, (Rect{0, 0, 215, 26}));
}

TEST_F(DockSceneTest, ADraggedTileGrowsAtOnceAndShrinksOnItsWayHome) {
    look.tiles[0].isBeingDragged = true;
    EXPECT_EQ(icon().scale, 1.08);
    EXPECT_EQ(icon().motion.scale, std::nullopt);

    look.tiles[0].isBeingDragged = false;
    look.tiles[0].wasBeingDragged = true;
    look.settles = true;
    EXPECT_EQ(icon().scale, 1);
    EXPECT_EQ(icon().motion.scale, (Curve{0.2, Easing::easeInOut}));
    EXPECT_EQ(icon().motion.slide, icon().motion.scale);
}

TEST_F(DockSceneTest, ADropTargetShrinksAsSlowlyAsItGrows) {
    look.tiles[1].isDropTargeted = true;
    EXPECT_EQ(node(NodeID::Part::icon, 4).motion.scale, (Curve{0.12, Easing::easeOut}));

    look.tiles[1].isDropTargeted = false;
    look.tiles[1].wasDropTargeted = true;
    EXPECT_EQ(node(NodeID::Part::icon, 4).motion.scale, (Curve{0.12, Easing::easeOut}));
}

TEST_F(DockSceneTest, ACollapsedDockIsAHandleAlongTheEdge) {
    const Scene scene = DockScene::collapsed(bottom);

    const SceneNode handle{.id = {NodeID::Part::handle},
                           .frame = {10, 80, 195, 4},
                           .content = HandleNode{},
                           .opacity = 0.4,
                           .motion = {.presence = listChange}};
    EXPECT_EQ(scene.nodes, std::vector{handle});
}

TEST_F(DockSceneTest, AHandleIsNeverShorterThanNothing) {
    const Scene scene = DockScene::collapsed({DockPosition::bottom, {15, 84}});

    EXPECT_EQ(scene.nodes.at(0).frame.width, 0);
}

}
}
