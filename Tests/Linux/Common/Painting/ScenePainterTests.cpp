#include "Icons/IconImage.hpp"
#include "Linux/EventLoop.hpp"
#include "Painting/ScenePainter.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vireline::xdg {
namespace {

constexpr NodeID anyNode{};

/// A checkerboard of single pixels, which any blur would turn grey; records the rendered sizes.
struct Checkers {
    std::vector<int> sides;

    [[nodiscard]] ImageHandle image() {
        return std::make_shared<IconImage>(Size{44, 44}, [this](int side) {
            sides.push_back(side);
            QImage board{side, side, QImage::Format_ARGB32_Premultiplied};
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    board.setPixelColor(x, y, (x + y) % 2 == 0 ? Qt::black : Qt::white);
                }
            }
            return board;
        });
    }
};

class ScenePainterTest : public testing::Test {
protected:
    ScenePainterTest() { test::testApplication(); }

    static QImage painted(const Scene& scene, double scale, bool isDark = false,
                          Backdrop backdrop = Backdrop::translucent) {
        QImage canvas{static_cast<int>(200 * scale), static_cast<int>(100 * scale),
                      QImage::Format_ARGB32_Premultiplied};
        canvas.fill(Qt::transparent);
        paint(canvas, scene, scale, DockColors::of(isDark, backdrop), canvas.rect());
        return canvas;
    }

    static void paint(QImage& canvas, const Scene& scene, double scale, const DockColors& colors,
                      const QRect& damage) {
        const std::vector<PlacedNode> places = placesOf(scene, scale);
        ScenePainter{}.paint(Pixels::canvas(canvas), {scene.nodes, places}, scale, colors,
                             std::span{&damage, 1});
    }

    static std::vector<PlacedNode> placesOf(const Scene& scene, double scale) {
        std::vector<PlacedNode> places;
        ViewMappings::place(places, scene, {{0, 0}, scale});
        return places;
    }

    /// An icon that can grow to twice its size.
    static ImageNode icon(Checkers& checkers, double side = 44) {
        return {checkers.image(), side, 2 * side};
    }

    static Scene one(Rect frame, decltype(SceneNode::content) content) {
        return {.nodes = {{.id = anyNode, .frame = frame, .content = std::move(content)}},
                .inputRegion = {}};
    }

    /// The bounding rectangle of everything painted.
    static QRect inked(const QImage& canvas) {
        QRect all;
        for (int y = 0; y < canvas.height(); ++y) {
            for (int x = 0; x < canvas.width(); ++x) {
                if (qAlpha(canvas.pixel(x, y)) > 0)
                    all |= QRect{x, y, 1, 1};
            }
        }
        return all;
    }
};

TEST_F(ScenePainterTest, DrawsImagesPixelForPixelAtEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        Checkers checkers;
        // The position is fractional.
        const QImage canvas = painted(one({10.3, 20.4, 44, 44}, icon(checkers)), scale);
        const int side = static_cast<int>(44 * scale);
        ASSERT_EQ(checkers.sides, std::vector{side});
        const QRect ink = inked(canvas);
        ASSERT_EQ(ink.size(), QSize(side, side)) << scale;
        for (int i = 0; i < side; ++i) {
            const QRgb pixel = canvas.pixel(ink.left() + i, ink.top());
            ASSERT_EQ(pixel, i % 2 == 0 ? 0xff000000U : 0xffffffffU) << scale << ' ' << i;
        }
    }
}

TEST_F(ScenePainterTest, DrawsIconsAtRestOnWholePixelsWhateverTheirSize) {
    Checkers checkers;
    const QImage canvas = painted(one({10, 20, 37, 37}, icon(checkers, 37)), 1.25);
    EXPECT_EQ(checkers.sides, std::vector{46});
    EXPECT_EQ(inked(canvas).size(), QSize(46, 46));
}

TEST_F(ScenePainterTest, DrawsGrowingImagesFromFewRenderings) {
    Checkers checkers;
    const ImageNode node = icon(checkers);
    for (int halves = 2 * 40; halves < 2 * 88; ++halves) {
        const double side = halves / 2.0;
        const QRect ink = inked(painted(one({100, 5, side, side}, node), 1));
        ASSERT_NEAR(ink.width(), side, 1) << side;
    }
    // The size at rest, and the largest size, which is twice that.
    EXPECT_EQ(checkers.sides, (std::vector{44, 88}));
}

TEST_F(ScenePainterTest, DrawsTheLargestImageSharp) {
    Checkers checkers;
    const QImage canvas = painted(one({50, 10, 88, 88}, icon(checkers)), 1);
    for (int i = 0; i < 88; ++i)
        ASSERT_EQ(canvas.pixel(50 + i, 10), i % 2 == 0 ? 0xff000000U : 0xffffffffU) << i;
}

TEST_F(ScenePainterTest, DrawsNothingThatIsInvisible) {
    Checkers checkers;
    Scene scene = one({10, 10, 44, 44}, icon(checkers));
    scene.nodes.front().opacity = 0;
    EXPECT_TRUE(inked(painted(scene, 1)).isEmpty());
    EXPECT_TRUE(checkers.sides.empty());
}

TEST_F(ScenePainterTest, LeavesNodesOutsideTheDamageAlone) {
    Checkers checkers;
    QImage canvas{200, 100, QImage::Format_ARGB32_Premultiplied};
    canvas.fill(Qt::transparent);
    paint(canvas, one({100, 10, 44, 44}, icon(checkers)), 1,
          DockColors::of(false, Backdrop::translucent), {0, 0, 50, 50});
    EXPECT_TRUE(inked(canvas).isEmpty());
}

TEST_F(ScenePainterTest, GivesGlassRoundCornersAndALightEdge) {
    for (const double scale : {1.0, 2.0}) {
        const QImage canvas = painted(one({10, 20, 150, 58}, GlassNode{18}), scale);
        const auto at = [&](double x, double y) {
            return canvas.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
        };
        EXPECT_EQ(inked(canvas),
                  QRect(static_cast<int>(10 * scale), static_cast<int>(20 * scale),
                        static_cast<int>(150 * scale), static_cast<int>(58 * scale)));
        EXPECT_EQ(at(11, 21).alpha(), 0) << "the corner is cut";
        const QColor middle = at(85, 50);
        EXPECT_GT(middle.alpha(), 100);
        EXPECT_LT(middle.alpha(), 255) << "the desktop shines through";
        const int edge = static_cast<int>(20 * scale);
        const int x = static_cast<int>(85 * scale);
        EXPECT_LT(canvas.pixelColor(x, edge).lightness(), middle.lightness()) << "outline";
        EXPECT_GT(canvas.pixelColor(x, edge + 1).lightness(), middle.lightness()) << "highlight";
    }
}

TEST_F(ScenePainterTest, MakesGlassOpaqueWithoutACompositor) {
    for (const bool isDark : {false, true}) {
        const QImage canvas =
            painted(one({10, 20, 150, 58}, GlassNode{18}), 1, isDark, Backdrop::opaque);
        EXPECT_EQ(canvas.pixelColor(85, 50).alpha(), 255);
    }
}

TEST_F(ScenePainterTest, FollowsTheDesktopIntoTheDark) {
    const Scene scene = one({10, 20, 150, 58}, GlassNode{18});
    EXPECT_GT(painted(scene, 1, false).pixelColor(85, 50).lightness(), 180);
    EXPECT_LT(painted(scene, 1, true).pixelColor(85, 50).lightness(), 80);
}

TEST_F(ScenePainterTest, DrawsSeparatorsOnWholePixels) {
    const QImage canvas = painted(one({50.5, 20, 1, 30}, SeparatorNode{0}), 1);
    const QRect ink = inked(canvas);
    EXPECT_EQ(ink.width(), 1);
    EXPECT_EQ(ink.height(), 30);
    EXPECT_EQ(canvas.pixelColor(ink.left(), 35).alpha(),
              DockColors::of(false, Backdrop::translucent).separator.alpha());
}

TEST_F(ScenePainterTest, KeepsALabelWithinItsRoom) {
    const LabelNode shortName{"Mail", 12, {9, 3}};
    const LabelNode longName{std::string(300, 'w'), 12, {9, 3}};
    const Rect room{20, 0, 120, 26};
    const QRect small = inked(painted(one(room, shortName), 1));
    const QRect large = inked(painted(one(room, longName), 1));
    EXPECT_LT(small.width(), 80);
    EXPECT_NEAR(small.center().x(), 79.5, 1);
    EXPECT_LE(large.width(), 120);
    EXPECT_GT(large.width(), 100);
    EXPECT_TRUE(QRect(20, 0, 120, 26).contains(large));
}

TEST_F(ScenePainterTest, SurvivesLabelsWithoutAnyRoom) {
    for (const std::string& text : {std::string{}, std::string{"Mail"}, std::string("a\nb\tc"),
                                    std::string("\xff\xfe\x80")}) {
        const QImage canvas = painted(one({20, 10, 3, 3}, LabelNode{text, 12, {9, 3}}), 1);
        EXPECT_LE(inked(canvas).width(), 5);
    }
}

TEST_F(ScenePainterTest, ScalesANodeAboutItsAnchor) {
    Scene scene = one({40, 40, 20, 20}, HandleNode{});
    scene.nodes.front().scale = 0.5;
    EXPECT_EQ(inked(painted(scene, 1)), QRect(45, 45, 10, 10));
    scene.nodes.front().anchor = Point{40, 40};
    EXPECT_EQ(inked(painted(scene, 1)), QRect(40, 40, 10, 10));
}

TEST_F(ScenePainterTest, TellsTheOutlinesOfAllGlass) {
    Scene scene = one({10, 20, 150, 58}, GlassNode{18});
    scene.nodes.push_back({.id = {NodeID::Part::label},
                           .frame = {20, 0, 120, 20},
                           .content = LabelNode{"Mail", 12, {9, 3}}});
    const auto outlines = ScenePainter::glassOutlines({scene.nodes, placesOf(scene, 1)});
    ASSERT_EQ(outlines.size(), 2U);
    EXPECT_EQ(outlines.front().boundingRect(), QRectF(10, 20, 150, 58));
    EXPECT_FALSE(outlines.front().contains(QPointF(11, 21)));
}

}
}
