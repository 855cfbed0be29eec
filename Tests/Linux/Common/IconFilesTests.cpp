#include "Icons/ImageFile.hpp"
#include "Icons/SvgBudget.hpp"
#include "Linux/EventLoop.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QPainter>
#include <fstream>
#include <string>

namespace vireline::xdg {
namespace {

std::string svg(const std::string& content) {
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" )"
           R"(width="16" height="16">)" +
           content + "</svg>";
}

bool allows(const std::string& text) {
    return SvgBudget::allows({text.data(), static_cast<qsizetype>(text.size())});
}

/// A drawing in which each of `levels` groups repeats the previous one ten times.
std::string bomb(int levels) {
    std::string content = R"(<g id="g0"><rect width="1" height="1"/></g>)";
    for (int level = 1; level <= levels; ++level) {
        content += "<g id=\"g" + std::to_string(level) + "\">";
        for (int i = 0; i < 10; ++i) {
            content += "<use xlink:href=\"#g" + std::to_string(level - 1) + "\"/>";
        }
        content += "</g>";
    }
    return svg(content);
}

TEST(SvgBudget, AllowsWhatIconsAreMadeOf) {
    EXPECT_TRUE(allows(svg(R"(<defs><linearGradient id="a"/></defs><path d="M0 0"/>)")));
    EXPECT_TRUE(allows(bomb(2)));
}

TEST(SvgBudget, RefusesRepetitionsOfRepetitions) {
    EXPECT_FALSE(allows(bomb(9)));
    EXPECT_FALSE(allows(bomb(90)));
}

TEST(SvgBudget, RefusesRepetitionsWithoutEnd) {
    EXPECT_FALSE(allows(svg(R"(<g id="a"><use xlink:href="#a"/></g>)")));
    EXPECT_FALSE(
        allows(svg(R"(<g id="a"><use xlink:href="#b"/></g><g id="b"><use xlink:href="#a"/></g>)")));
}

TEST(SvgBudget, RefusesGreatDepth) {
    std::string open;
    std::string close;
    for (int i = 0; i < 100'000; ++i) {
        open += "<g>";
        close += "</g>";
    }
    EXPECT_FALSE(allows(svg(open + close)));
}

TEST(SvgBudget, RefusesEntitiesOfEntities) {
    std::string text = R"(<?xml version="1.0"?><!DOCTYPE svg [<!ENTITY a0 "<g/>">)";
    for (int i = 1; i < 30; ++i) {
        const std::string before = "&a" + std::to_string(i - 1) + ";";
        text.append("<!ENTITY a").append(std::to_string(i)).append(" \"");
        text.append(before).append(before).append("\">");
    }
    EXPECT_FALSE(allows(text + "]>" + svg("&a29;")));
}

TEST(SvgBudget, RefusesPicturesFromElsewhere) {
    EXPECT_FALSE(allows(svg(R"(<image xlink:href="/dev/zero"/>)")));
    EXPECT_FALSE(allows(svg(R"(<image xlink:href="file:///etc/passwd"/>)")));
    EXPECT_TRUE(allows(svg(R"(<image xlink:href="data:image/png;base64,AAAA"/>)")));
}

TEST(SvgBudget, RefusesWhatIsNoDrawing) {
    for (const char* text : {"", "<svg", "not xml at all", "<svg></g>", "\xff\xfe"}) {
        EXPECT_FALSE(allows(text)) << text;
    }
}

class ImageFileTest : public testing::Test {
protected:
    ImageFileTest() { test::testApplication(); }

    [[nodiscard]] std::string write(const std::string& name, const std::string& content) const {
        const auto path = folder.path() / name;
        std::ofstream{path, std::ios::binary} << content;
        return path.string();
    }

    [[nodiscard]] std::string png(const std::string& name, int width, int height,
                                  const QColor& colour) const {
        QImage image{width, height, QImage::Format_ARGB32};
        image.fill(colour);
        const std::string path = (folder.path() / name).string();
        image.save(QString::fromStdString(path), "PNG");
        return path;
    }

    /// Null if the file cannot be loaded.
    static QImage loaded(const std::string& path, int side) {
        return ImageFile::load(path, side).value_or(QImage{});
    }

    test::TemporaryFolder folder;
};

TEST_F(ImageFileTest, ReadsPNGAtTheSizeAsked) {
    const QImage picture = loaded(png("a.png", 128, 128, Qt::red), 44);
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.size(), QSize(44, 44));
    EXPECT_EQ(picture.pixelColor(22, 22), QColor(Qt::red));
}

TEST_F(ImageFileTest, KeepsProportionsInTheMiddleOfTheSquare) {
    const QImage picture = loaded(png("a.png", 100, 50, Qt::red), 40);
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.pixelColor(20, 4).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(20, 20), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(20, 36).alpha(), 0);
}

TEST_F(ImageFileTest, DrawsSVGSharpAtAnySize) {
    const std::string path =
        write("a.svg", svg(R"(<rect x="8" width="8" height="16" fill="#ff0000"/>)"));
    for (const int side : {16, 44, 88, 200}) {
        const QImage picture = loaded(path, side);
        ASSERT_FALSE(picture.isNull());
        EXPECT_EQ(picture.pixelColor(side / 2 - 1, side / 2).alpha(), 0) << side;
        EXPECT_EQ(picture.pixelColor(side / 2, side / 2), QColor(Qt::red)) << side;
    }
}

TEST_F(ImageFileTest, KnowsSVGByItsContent) {
    EXPECT_TRUE(ImageFile::load(write("a.png", svg(R"(<rect width="9" height="9"/>)")), 44));
}

TEST_F(ImageFileTest, GivesNothingForDamagedFiles) {
    const std::string whole = [&] {
        std::ifstream in{png("whole.png", 64, 64, Qt::red), std::ios::binary};
        return std::string{std::istreambuf_iterator<char>{in}, {}};
    }();
    EXPECT_FALSE(ImageFile::load(write("half.png", whole.substr(0, 40)), 44));
    EXPECT_FALSE(ImageFile::load(write("empty.png", ""), 44));
    EXPECT_FALSE(ImageFile::load(write("text.png", "no picture"), 44));
    EXPECT_FALSE(ImageFile::load(write("half.svg", svg("<rect/>").substr(0, 60)), 44));
    EXPECT_FALSE(ImageFile::load((folder.path() / "missing.png").string(), 44));
    EXPECT_FALSE(ImageFile::load(folder.path().string(), 44));
}

TEST_F(ImageFileTest, RefusesPicturesOfAbsurdSizeBeforeDecodingThem) {
    // One bit per pixel: small in the file, 1.6 GB when decoded.
    QImage huge{20'000, 20'000, QImage::Format_Mono};
    huge.fill(0);
    const std::string path = (folder.path() / "huge.png").string();
    ASSERT_TRUE(huge.save(QString::fromStdString(path), "PNG"));
    EXPECT_FALSE(ImageFile::load(path, 44));
}

TEST_F(ImageFileTest, DoesNotWaitForAPipe) {
    const std::string path = (folder.path() / "pipe.png").string();
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(ImageFile::load(path, 44));
}

TEST_F(ImageFileTest, RefusesDrawingsBeyondMeasure) {
    EXPECT_FALSE(ImageFile::load(write("bomb.svg", bomb(12)), 44));
}

}
}
