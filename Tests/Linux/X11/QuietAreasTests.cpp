#include "Panels/Pointer/QuietAreas.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace vireline::x11 {
namespace {

Scene sceneWith(std::vector<Rect> hoverAreas) {
    Scene scene;
    scene.hoverAreas = std::move(hoverAreas);
    return scene;
}

/// A view that begins 10 pixels to the right in its window.
xdg::PanelLayout layoutOf(QSize window, double scale) {
    return {.window = window, .active = {{0, 0}, window}, .mapping = {{10, 0}, scale}, .view = {}};
}

/// Checks that every pixel of the window is in exactly one area, and that the pixels of an area
/// are all on the same tile or on none.
void expectDivides(const Scene& scene, const xdg::PanelLayout& layout) {
    const auto areas = QuietAreas::of(scene, layout);
    std::vector<std::optional<std::ptrdiff_t>> tiles(areas.size());
    for (int y = 0; y < layout.window.height(); ++y) {
        for (int x = 0; x < layout.window.width(); ++x) {
            const auto holds = [=](const QRect& area) { return area.contains(x, y); };
            ASSERT_EQ(std::ranges::count_if(areas, holds), 1) << x << ", " << y;
            const Point p = layout.mapping.toView(QPointF(x, y));
            const auto tile = std::ranges::find_if(*scene.hoverAreas,
                                                   [p](const Rect& r) { return r.contains(p); }) -
                              scene.hoverAreas->begin();
            auto& first =
                tiles[static_cast<std::size_t>(std::ranges::find_if(areas, holds) - areas.begin())];
            first = first.value_or(tile);
            ASSERT_EQ(*first, tile) << x << ", " << y;
        }
    }
    for (const QRect& area : areas)
        EXPECT_FALSE(area.isEmpty());
}

TEST(QuietAreas, DivideTheWindowByTiles) {
    const Scene row = sceneWith({{7, 26, 44, 51}, {57, 26, 44, 51}, {114, 26, 44, 51}});
    expectDivides(row, layoutOf({190, 84}, 1));
    expectDivides(row, layoutOf({380, 168}, 2));
    expectDivides(row, layoutOf({250, 110}, 1.25));
    const Scene column = sceneWith({{0, 7, 51, 44}, {0, 57, 51, 44}});
    expectDivides(column, layoutOf({80, 120}, 1));
}

TEST(QuietAreas, StayInsideAWindowThatTheStripOverflows) {
    expectDivides(
        sceneWith({{-60, 26, 44, 51}, {-30, 26, 44, 51}, {20, 26, 44, 51}, {70, 26, 44, 51}}),
        layoutOf({90, 84}, 1));
}

TEST(QuietAreas, AreOneWithoutTiles) {
    EXPECT_EQ(QuietAreas::of(sceneWith({}), layoutOf({90, 84}, 1)),
              std::vector{QRect(0, 0, 90, 84)});
}

TEST(QuietAreas, AreNoneWhereEveryMovementMatters) {
    EXPECT_TRUE(QuietAreas::of(Scene{}, layoutOf({90, 84}, 1)).empty());
}

}
}
