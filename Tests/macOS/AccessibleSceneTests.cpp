#include "Translation/AccessibleScene.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

using Tiles = std::vector<std::uint32_t>;

void addTile(Scene& scene, std::uint32_t tile, Point at, double dotOpacity) {
    scene.nodes.push_back(
        {.id = {NodeID::Part::icon, tile}, .frame = {at.x, at.y, 44, 44}, .content = ImageNode{}});
    scene.nodes.push_back({.id = {NodeID::Part::dot, tile},
                           .frame = {at.x + 20, at.y + 45, 4, 4},
                           .content = DotNode{},
                           .opacity = dotOpacity});
}

TEST(AccessibleScene, KnowsTheTilesAndWhichOfThemRun) {
    Scene scene;
    addTile(scene, 7, {0, 0}, 1);
    addTile(scene, 3, {50, 0}, 0);

    const AccessibleScene noticed = AccessibleScene::of(scene);

    EXPECT_EQ(noticed.tiles, (Tiles{7, 3}));
    EXPECT_EQ(noticed.running, (Tiles{7}));
}

TEST(AccessibleScene, ADraggedTileThatIsPaintedLastKeepsItsPlace) {
    Scene scene;
    addTile(scene, 2, {0, 50}, 0);
    addTile(scene, 1, {0, 0}, 0);

    EXPECT_EQ(AccessibleScene::of(scene).tiles, (Tiles{1, 2}));
}

TEST(AccessibleScene, MagnifyingIsNoChange) {
    Scene before;
    addTile(before, 1, {0, 20}, 1);
    addTile(before, 2, {50, 20}, 0);
    Scene after;
    addTile(after, 1, {-10, 0}, 1);
    addTile(after, 2, {60, 3}, 0);

    EXPECT_EQ(AccessibleScene::of(before), AccessibleScene::of(after));
}

TEST(AccessibleScene, TellsWhichTilesBeganOrCeasedToRun) {
    Scene before;
    addTile(before, 1, {0, 0}, 1);
    addTile(before, 2, {50, 0}, 0);
    addTile(before, 3, {100, 0}, 1);
    Scene after;
    addTile(after, 1, {0, 0}, 0);
    addTile(after, 2, {50, 0}, 1);
    addTile(after, 3, {100, 0}, 1);

    EXPECT_EQ(AccessibleScene::of(after).changedSince(AccessibleScene::of(before)), (Tiles{1, 2}));
    EXPECT_EQ(AccessibleScene::of(after).changedSince(AccessibleScene::of(after)), Tiles{});
}

TEST(AccessibleScene, NothingButTilesCounts) {
    Scene scene;
    scene.nodes.push_back({.id = {NodeID::Part::strip}, .frame = {}, .content = GlassNode{}});
    scene.nodes.push_back({.id = {NodeID::Part::label}, .frame = {}, .content = LabelNode{}});

    EXPECT_EQ(AccessibleScene::of(scene), AccessibleScene{});
}

}
}
