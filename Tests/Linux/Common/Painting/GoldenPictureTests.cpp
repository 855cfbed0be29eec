/// Compares docks on every edge, in every state, light and dark, with reference pictures that were
/// checked by eye.
#include "Linux/Common/Painting/DockPictures.hpp"
#include "Linux/EventLoop.hpp"

#include <gtest/gtest.h>

#include <QDir>
#include <QFont>
#include <cstdlib>
#include <string>
#include <vector>

namespace vireline::test {
namespace {

struct Look {
    const char* name;
    DockPosition position;
    double scale;

    friend std::ostream& operator<<(std::ostream& out, const Look& look) {
        return out << look.name;
    }
};

std::string nameOf(const testing::TestParamInfo<Look>& info) {
    return info.param.name;
}

/// The difference between two pictures of the same size.
struct Difference {
    /// The largest difference of any pixel.
    int greatest = 0;
    /// The number of pixels with a visible difference.
    int visible = 0;
};

int apart(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

Difference differenceOf(const QImage& a, const QImage& b) {
    constexpr int noticed = 12;
    Difference difference;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const int distance = apart(a.pixel(x, y), b.pixel(x, y));
            difference.greatest = std::max(difference.greatest, distance);
            difference.visible += distance > noticed ? 1 : 0;
        }
    }
    return difference;
}

class GoldenPicture : public testing::Test {
public:
    GoldenPicture() {
        testApplication();
        QGuiApplication::setFont(QFont{QStringLiteral("DejaVu Sans")});
    }
    ~GoldenPicture() override { QGuiApplication::setFont(font_); }

protected:
    /// Compares with the reference picture of that name, or overwrites it if asked to.
    static void compare(const std::string& name, const QImage& actual) {
        const QString file = QString::fromStdString(name + ".png");
        const QString golden = QDir{QStringLiteral(GOLDEN_PICTURES)}.filePath(file);
        if (qEnvironmentVariableIsSet("VIRELINE_TAKE_PICTURES")) {
            EXPECT_TRUE(actual.save(golden, "PNG", 0));
            return;
        }
        const QImage expected{golden};
        ASSERT_EQ(expected.size(), actual.size()) << name;
        // Versions of the font renderer draw letters slightly differently.
        const int tolerated = actual.width() * actual.height() / 1000;
        const Difference difference = differenceOf(expected, actual);
        if (difference.visible <= tolerated)
            return;
        QDir{}.mkpath(QStringLiteral(EVIDENCE_FOLDER));
        actual.save(QDir{QStringLiteral(EVIDENCE_FOLDER)}.filePath(file));
        ADD_FAILURE() << name << ": " << difference.visible << " pixels differ, by up to "
                      << difference.greatest << "; see " << EVIDENCE_FOLDER;
    }

    static void addLightAndDark(std::vector<QImage>& pictures, const PicturedDock& dock,
                                double scale) {
        pictures.push_back(dock.picture(scale, false));
        pictures.push_back(dock.picture(scale, true));
    }

private:
    QFont font_ = QGuiApplication::font();
};

class GoldenDock : public GoldenPicture, public testing::WithParamInterface<Look> {};

/// One state per row: at rest, magnified with a label, a tile dragged past its neighbour,
/// collapsed.
TEST_P(GoldenDock, LooksAsItShould) {
    const Look& look = GetParam();
    std::vector<QImage> pictures;
    PicturedDock dock{{.position = look.position}};
    addLightAndDark(pictures, dock, look.scale);
    dock.pointAt(1);
    addLightAndDark(pictures, dock, look.scale);

    PicturedDock dragged{{.position = look.position, .magnification = 1}};
    dragged.pointAt(0);
    dragged.press();
    dragged.moveAlong(70);
    addLightAndDark(pictures, dragged, look.scale);

    const PicturedDock collapsed{{.position = look.position, .autoHide = true}};
    addLightAndDark(pictures, collapsed, look.scale);

    const int columns = look.position == DockPosition::bottom ? 2 : 8;
    compare(look.name, sheetOf(pictures, columns));
}

INSTANTIATE_TEST_SUITE_P(All, GoldenDock,
                         testing::Values(Look{"bottom", DockPosition::bottom, 1},
                                         Look{"bottomDense", DockPosition::bottom, 2},
                                         Look{"left", DockPosition::left, 1},
                                         Look{"leftDense", DockPosition::left, 2},
                                         Look{"right", DockPosition::right, 1},
                                         Look{"rightDense", DockPosition::right, 2}),
                         nameOf);

class GoldenSizes : public GoldenPicture, public testing::WithParamInterface<DockPosition> {};

/// One row per icon size: hovered, without magnification and with twofold magnification.
TEST_P(GoldenSizes, AreAllWhole) {
    std::vector<QImage> pictures;
    for (const double size : {32.0, 44.0, 64.0}) {
        for (const double magnification : {1.0, 2.0}) {
            PicturedDock dock{
                {.position = GetParam(), .iconSize = size, .magnification = magnification}};
            dock.pointAt(1);
            pictures.push_back(dock.picture(1, false));
        }
    }
    const int columns = GetParam() == DockPosition::bottom ? 2 : 6;
    compare("sizes-" + std::string{rawValue(GetParam())}, sheetOf(pictures, columns));
}

INSTANTIATE_TEST_SUITE_P(All, GoldenSizes,
                         testing::Values(DockPosition::bottom, DockPosition::left,
                                         DockPosition::right),
                         [](const auto& edge) { return std::string{rawValue(edge.param)}; });

/// What apps signal, one row per scale: at rest, magnified, and on the line of a collapsed dock.
TEST_F(GoldenPicture, ShowsWhatAppsSignal) {
    std::vector<QImage> pictures;
    for (const double scale : {1.0, 1.5, 2.0}) {
        PicturedDock dock{{.magnification = 2}};
        dock.signal();
        pictures.push_back(dock.picture(scale, false));
        pictures.push_back(dock.picture(scale, true));
        dock.pointAt(1);
        pictures.push_back(dock.picture(scale, false));
        PicturedDock collapsed{{.autoHide = true}};
        collapsed.signal();
        pictures.push_back(collapsed.picture(scale, true));
    }
    compare("signals", sheetOf(pictures, 4));
    std::vector<QImage> sides;
    for (const DockPosition position : {DockPosition::left, DockPosition::right}) {
        PicturedDock dock{{.position = position, .magnification = 1}};
        dock.signal();
        sides.push_back(dock.picture(1, false));
    }
    compare("signalsAtTheSides", sheetOf(sides, 2));
}

/// At fractional scales, icons at rest are as sharp as at integer ones.
TEST_F(GoldenPicture, IsSharpAtScalesInBetween) {
    std::vector<QImage> pictures;
    for (const double scale : {1.25, 1.5, 1.75}) {
        PicturedDock dock{{.magnification = 1}};
        pictures.push_back(dock.picture(scale, false));
    }
    compare("scalesInBetween", sheetOf(pictures, 1));
}

}
}
