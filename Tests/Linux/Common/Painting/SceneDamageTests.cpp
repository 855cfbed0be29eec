#include "Painting/SceneDamage.hpp"

#include <gtest/gtest.h>

#include <QRegion>
#include <vector>

namespace vireline::xdg {
namespace {

constexpr ViewMapping twice{{10, 20}, 2};

SceneNode node(NodeID::Part part, std::uint32_t owner, Rect frame) {
    return {.id = {part, owner}, .frame = frame, .content = DotNode{}};
}

/// A background with two dots.
Scene scene() {
    return {.nodes = {node(NodeID::Part::strip, 0, {0, 0, 100, 50}),
                      node(NodeID::Part::dot, 1, {10, 10, 4, 4}),
                      node(NodeID::Part::dot, 2, {30, 10, 4, 4})},
            .inputRegion = {}};
}

QRegion between(const Scene& before, const Scene& after) {
    std::vector<PlacedNode> from;
    std::vector<PlacedNode> to;
    ViewMappings::place(from, before, twice);
    ViewMappings::place(to, after, twice);
    Damage damage;
    SceneDamage::add(damage, {before.nodes, from}, {after.nodes, to});
    QRegion region;
    for (const QRect& rect : damage.rects())
        region += rect;
    return region;
}

TEST(SceneDamage, IsNothingBetweenEqualScenes) {
    EXPECT_TRUE(between(scene(), scene()).isEmpty());
}

TEST(SceneDamage, IsWhereAChangedNodeWasAndIs) {
    Scene after = scene();
    after.nodes[1].frame.x = 20;
    const QRegion damage = between(scene(), after);
    // Pixels (10 + 10 · 2, 20 + 10 · 2), 8 wide, plus a margin of one pixel for antialiasing.
    EXPECT_EQ(damage, QRegion(29, 39, 10, 10) + QRegion(49, 39, 10, 10));
}

TEST(SceneDamage, HoldsAppearedAndVanishedNodes) {
    Scene after = scene();
    after.nodes.erase(after.nodes.begin() + 1);
    after.nodes.push_back(node(NodeID::Part::handle, 0, {0, 0, 5, 5}));
    EXPECT_EQ(between(scene(), after), QRegion(29, 39, 10, 10) + QRegion(9, 19, 12, 12));
}

TEST(SceneDamage, HoldsNodesThatChangedTheirOrder) {
    Scene after = scene();
    std::swap(after.nodes[1], after.nodes[2]);
    const QRegion damage = between(scene(), after);
    EXPECT_TRUE(damage.contains(QPoint(33, 43)));
    EXPECT_FALSE(damage.contains(QPoint(150, 100)));
}

TEST(SceneDamage, FollowsScaleAndOffset) {
    Scene after = scene();
    after.nodes[1].scale = 3;
    const QRegion damage = between(scene(), after);
    // The dot grows around its centre, (12, 12), to 12 points.
    EXPECT_EQ(damage.boundingRect(), QRect(21, 31, 26, 26));
}

}
}
