#include "Icons/ImageFile.hpp"
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

TEST_F(ImageFileTest, DrawsNothingOfWhatSVGOnlyRefersTo) {
    const std::string small = R"(<rect x="8" y="8" width="8" height="8" fill="#ff0000"/>)";
    for (const char* const definition :
         {R"(<clipPath id="a"><rect width="16" height="16"/></clipPath>)",
          R"(<clipPath id="a"><path d="M0 0h8v8z"/></clipPath><clipPath id="b"/>)",
          R"(<mask id="a"><g><rect width="16" height="16"/></g></mask>)"}) {
        const QImage picture = loaded(write("a.svg", svg(definition + small)), 64);
        ASSERT_FALSE(picture.isNull()) << definition;
        EXPECT_EQ(picture.pixelColor(6, 6).alpha(), 0) << definition;
        EXPECT_EQ(picture.pixelColor(48, 48), QColor(Qt::red)) << definition;
    }
}

TEST_F(ImageFileTest, GivesNothingForADefinitionThatNeverEnds) {
    EXPECT_FALSE(ImageFile::load(write("a.svg", svg("<clipPath><rect/>")), 44));
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

TEST_F(ImageFileTest, SurvivesDrawingsThatRepeatThemselvesOrNeverEnd) {
    // Newer versions of Qt discard these, older ones draw them without the repetition.
    for (const char* content :
         {R"(<g id="a"><use xlink:href="#a"/></g>)", R"(<g id="a"><use xlink:href="#b"/></g>)"
                                                     R"(<g id="b"><use xlink:href="#a"/></g>)"})
        static_cast<void>(ImageFile::load(write("loop.svg", svg(content)), 44));

    std::string deep;
    for (int i = 0; i < 100'000; ++i)
        deep += "<g>";
    EXPECT_FALSE(ImageFile::load(write("deep.svg", svg(deep)), 44));
}

TEST_F(ImageFileTest, RefusesDrawingsThatAreTooLong) {
    const std::string comment = "<!--" + std::string(std::size_t{3} << 20U, 'x') + "-->";
    EXPECT_FALSE(ImageFile::load(write("long.svg", svg(comment + "<rect/>")), 44));
}

}
}
