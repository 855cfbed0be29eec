#include "Input/CursorTheme.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::wayland {
namespace {

constexpr std::uint32_t cursorFileVersion = 0x10000;
constexpr std::uint32_t cursorImageType = 0xfffd0002;
constexpr std::uint32_t cursorCommentType = 0xfffe0001;
constexpr std::size_t cursorHeaderBytes = 16;
constexpr std::size_t cursorEntryBytes = 12;
constexpr std::size_t cursorChunkBytes = 36;

void appendWord(std::string& bytes, std::uint32_t word) {
    for (int i = 0; i < 4; ++i, word >>= 8U)
        bytes += static_cast<char>(word & 0xffU);
}

void setWord(std::string& bytes, std::size_t at, std::uint32_t word) {
    std::string text;
    appendWord(text, word);
    bytes.replace(at, text.size(), text);
}

/// An image of one colour, as it is in a file.
struct FiledCursor {
    std::uint32_t size = 24;
    std::uint32_t width = 2;
    std::uint32_t height = 3;
    std::uint32_t hotspotX = 1;
    std::uint32_t hotspotY = 1;
    std::uint32_t colour = 0x80402010;
    std::uint32_t type = cursorImageType;
};

std::string cursorFile(const std::vector<FiledCursor>& images) {
    std::string table{"Xcur"};
    for (const std::uint32_t word : {std::uint32_t{cursorHeaderBytes}, cursorFileVersion,
                                     static_cast<std::uint32_t>(images.size())})
        appendWord(table, word);
    const std::size_t start = cursorHeaderBytes + images.size() * cursorEntryBytes;
    std::string chunks;
    for (const FiledCursor& image : images) {
        const auto position = static_cast<std::uint32_t>(start + chunks.size());
        for (const std::uint32_t word : {image.type, image.size, position})
            appendWord(table, word);
        for (const std::uint32_t word :
             {std::uint32_t{cursorChunkBytes}, image.type, image.size, 1U, image.width,
              image.height, image.hotspotX, image.hotspotY, 50U})
            appendWord(chunks, word);
        for (std::uint32_t i = 0; i < image.width * image.height; ++i)
            appendWord(chunks, image.colour + i);
    }
    return table + chunks;
}

/// Where the only image of a file begins, and its parts.
constexpr std::size_t onlyEntry = cursorHeaderBytes;
constexpr std::size_t onlyChunk = cursorHeaderBytes + cursorEntryBytes;

TEST(CursorFile, IsReadAsAnImageWithAHotspot) {
    const auto image = CursorTheme::parse(cursorFile({{.hotspotX = 1, .hotspotY = 2}}), 24);

    ASSERT_TRUE(image);
    EXPECT_EQ(image->picture.size(), (QSize{2, 3}));
    EXPECT_EQ(image->hotspot, (QPoint{1, 2}));
    const auto pixel = [&](int x, int y) {
        return reinterpret_cast<const std::uint32_t*>(image->picture.constScanLine(y))[x];
    };
    EXPECT_EQ(pixel(0, 0), 0x80402010);
    EXPECT_EQ(pixel(1, 0), 0x80402011);
    EXPECT_EQ(pixel(0, 1), 0x80402012);
    EXPECT_EQ(pixel(1, 2), 0x80402015);
}

TEST(CursorFile, GivesTheImageOfTheNearestSize) {
    const std::string file = cursorFile({{.size = 48, .width = 48, .height = 1},
                                         {.size = 24, .width = 24, .height = 1},
                                         {.size = 32, .width = 32, .height = 1}});
    const auto widthFor = [&](int size) { return CursorTheme::parse(file, size)->picture.width(); };
    EXPECT_EQ(widthFor(24), 24);
    EXPECT_EQ(widthFor(1), 24);
    EXPECT_EQ(widthFor(30), 32);
    EXPECT_EQ(widthFor(45), 48);
    EXPECT_EQ(widthFor(256), 48);
}

TEST(CursorFile, GivesTheFirstFrameOfAnAnimation) {
    const auto image = CursorTheme::parse(cursorFile({{.colour = 0xff000000}, {.colour = 0}}), 24);

    ASSERT_TRUE(image);
    EXPECT_EQ(image->picture.pixel(0, 0), 0xff000000);
}

TEST(CursorFile, MayHaveComments) {
    const auto image = CursorTheme::parse(
        cursorFile({{.size = 24, .width = 1, .type = cursorCommentType}, {}}), 24);

    ASSERT_TRUE(image);
    EXPECT_EQ(image->picture.width(), 2);
}

TEST(CursorFile, GivesNothingIfItIsTruncated) {
    const std::string file = cursorFile({{}});
    ASSERT_TRUE(CursorTheme::parse(file, 24));

    for (std::size_t length = 0; length < file.size(); ++length)
        EXPECT_FALSE(CursorTheme::parse(file.substr(0, length), 24)) << length;
}

TEST(CursorFile, GivesNothingIfItIsOfAnotherKind) {
    std::string file = cursorFile({{}});
    file[3] = 's';
    EXPECT_FALSE(CursorTheme::parse(file, 24));
    EXPECT_FALSE(CursorTheme::parse(std::string(1000, '\xff'), 24));
    EXPECT_FALSE(CursorTheme::parse(cursorFile({}), 24));
    EXPECT_FALSE(CursorTheme::parse(cursorFile({{.type = cursorCommentType}}), 24));
}

TEST(CursorFile, GivesNothingForAbsurdSizes) {
    constexpr std::uint32_t most = std::numeric_limits<std::uint32_t>::max();
    constexpr std::size_t width = onlyChunk + 16;
    constexpr std::size_t height = onlyChunk + 20;
    for (const std::size_t side : {width, height}) {
        // The product of 0x40000000 and four bytes does not fit into 32 bits.
        for (const std::uint32_t length : {0U, 1025U, 0x10000U, 0x40000000U, 0x80000000U, most}) {
            std::string file = cursorFile({{}});
            setWord(file, side, length);
            EXPECT_FALSE(CursorTheme::parse(file, 24)) << side << ' ' << length;
        }
    }
    // Large enough, but with a larger image than any cursor is.
    EXPECT_FALSE(CursorTheme::parse(cursorFile({{.width = 1025, .height = 1}}), 24));
    EXPECT_TRUE(CursorTheme::parse(cursorFile({{.width = 1024, .height = 1}}), 24));
}

TEST(CursorFile, GivesNothingIfAnImageBeginsBeyondItsEnd) {
    std::string file = cursorFile({{}});
    const auto length = static_cast<std::uint32_t>(file.size());
    for (const std::uint32_t position :
         {0U, length - 4, length, length + 1, 0x7fffffffU, 0xfffffff0U, 0xffffffffU}) {
        setWord(file, onlyEntry + 8, position);
        EXPECT_FALSE(CursorTheme::parse(file, 24)) << position;
    }
}

TEST(CursorFile, MayClaimMoreEntriesThanItHas) {
    std::string file = cursorFile({{}});
    setWord(file, 12, std::numeric_limits<std::uint32_t>::max());

    // What follows the table is no entry of an image.
    EXPECT_TRUE(CursorTheme::parse(file, 24));
}

TEST(CursorFile, GivesNothingIfTheHotspotIsOutside) {
    EXPECT_TRUE(CursorTheme::parse(cursorFile({{.hotspotX = 0, .hotspotY = 0}}), 24));
    EXPECT_FALSE(CursorTheme::parse(cursorFile({{.hotspotX = 3}}), 24));
    EXPECT_FALSE(CursorTheme::parse(cursorFile({{.hotspotY = 4}}), 24));
    EXPECT_FALSE(CursorTheme::parse(cursorFile({{.hotspotX = 0xffffffff}}), 24));
}

/// Themes in two folders, of which the first counts more. Each arrow is known by its width.
class CursorThemeTest : public testing::Test {
protected:
    void install(const std::string& theme, const std::string& name, std::uint32_t width,
                 const char* folder = "own") const {
        write(folder + ('/' + theme) + "/cursors/" + name,
              cursorFile({{.width = width, .hotspotX = 0}}));
    }
    void inherit(const std::string& theme, const std::string& parents) const {
        write("own/" + theme + "/index.theme",
              "[Icon Theme]\nName=Any\nInherits=" + parents + '\n');
    }
    void write(const std::string& path, std::string_view content) const {
        const auto file = folder_.path() / path;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream{file, std::ios::binary} << content;
    }
    /// The width of the theme's arrow; 0 if there is none.
    [[nodiscard]] int arrowOf(const std::string& theme) const {
        const auto image = CursorTheme::arrow(
            {(folder_.path() / "own").string(), (folder_.path() / "system").string()}, theme, 24);
        return image ? image->picture.width() : 0;
    }

    test::TemporaryFolder folder_;
};

TEST_F(CursorThemeTest, GivesItsArrow) {
    install("Plain", "default", 5);
    EXPECT_EQ(arrowOf("Plain"), 5);
    EXPECT_EQ(arrowOf("Other"), 0);
}

TEST_F(CursorThemeTest, MayUseTheOlderName) {
    install("Old", "left_ptr", 6);
    EXPECT_EQ(arrowOf("Old"), 6);

    install("Old", "default", 7);
    EXPECT_EQ(arrowOf("Old"), 7);

    write("own/Old/cursors/default", "damaged");
    EXPECT_EQ(arrowOf("Old"), 6);
}

TEST_F(CursorThemeTest, IsLookedForInAllFolders) {
    install("Plain", "default", 8, "system");
    EXPECT_EQ(arrowOf("Plain"), 8);

    install("Plain", "default", 9, "own");
    EXPECT_EQ(arrowOf("Plain"), 9);
}

TEST_F(CursorThemeTest, InheritsFromItsParentsInOrder) {
    inherit("Child", "First,Second");
    inherit("First", "Grandparent");
    install("Grandparent", "default", 4);
    EXPECT_EQ(arrowOf("Child"), 4);

    install("Second", "default", 3, "system");
    EXPECT_EQ(arrowOf("Child"), 3) << "the nearer relative";

    install("First", "default", 2);
    EXPECT_EQ(arrowOf("Child"), 2);
}

TEST_F(CursorThemeTest, MayInheritInACircle) {
    inherit("A", "A,B");
    inherit("B", "A,B,C");
    EXPECT_EQ(arrowOf("A"), 0);

    install("C", "left_ptr", 11);
    EXPECT_EQ(arrowOf("A"), 11);
}

TEST_F(CursorThemeTest, GivesNothingIfAllFilesAreDamaged) {
    inherit("Damaged", "AlsoDamaged");
    write("own/Damaged/cursors/default", "");
    write("own/Damaged/cursors/left_ptr", "Xcur");
    write("own/AlsoDamaged/index.theme", std::string(100, '\0'));
    std::filesystem::create_directories(folder_.path() / "own/AlsoDamaged/cursors/default");

    EXPECT_EQ(arrowOf("Damaged"), 0);
}

}
}
