#include "Icons/Themes/ChosenIconTheme.hpp"
#include "Icons/Themes/IconTheme.hpp"
#include "Support/TemporaryFolder.hpp"
#include "Text/IniText.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace vireline::xdg {
namespace {

namespace fs = std::filesystem;

/// A valid cache of GTK's, in big-endian words.
std::string cacheWithoutIcons() {
    constexpr std::uint32_t version = 1U << 16U;
    constexpr std::uint32_t hashTable = 3 * 4;
    constexpr std::uint32_t folderList = hashTable + 2 * 4;
    constexpr std::uint32_t buckets = 1;
    constexpr std::uint32_t emptyBucket = 0xffffffff;
    constexpr std::uint32_t folders = 0;
    std::string bytes;
    for (const std::uint32_t word :
         {version, hashTable, folderList, buckets, emptyBucket, folders}) {
        for (const unsigned shift : {24U, 16U, 8U, 0U})
            bytes += static_cast<char>(word >> shift & 0xffU);
    }
    return bytes;
}

TEST(IniText, ReadsGroupsKeysAndLists) {
    const IniText text{"# comment\nstray=1\n[A]\n key = a value \nkey=second\nlist=a,, b ;c\n"
                       "nonsense\n[B]\r\nkey=b\r\n"};
    EXPECT_EQ(text.value("A", "key"), "a value");
    EXPECT_EQ(text.value("B", "key"), "b");
    EXPECT_EQ(text.value("A", "stray"), std::nullopt);
    EXPECT_EQ(text.value("C", "key"), std::nullopt);
    EXPECT_EQ(text.list("A", "list"), (std::vector<std::string_view>{"a", "b", "c"}));
}

TEST(IconThemeIndex, SkipsInvalidFolders) {
    const auto index = IconThemeIndexes::parse(
        "[Icon Theme]\nDirectories=48/apps,../etc,/etc,none,bad,22@2x/apps\nInherits=B,A\n"
        "[48/apps]\nSize=48\nType=Fixed\n[../etc]\nSize=48\n[/etc]\nSize=48\n[bad]\nSize=-3\n"
        "[22@2x/apps]\nSize=22\nScale=2\n");
    ASSERT_EQ(index.folders.size(), 1U);
    EXPECT_EQ(index.folders.front().path, "48/apps");
    EXPECT_EQ(index.parents, (std::vector<std::string>{"B", "A"}));
}

TEST(IconThemeIndex, PrefersWhatIsMadeForTheSizeThenLargerThenSmaller) {
    const IconFolder fixed32{"32", 32, 32, 32};
    const IconFolder fixed48{"48", 48, 48, 48};
    const IconFolder fixed256{"256", 256, 256, 256};
    const IconFolder scalable{"scalable", 128, 8, 512};
    EXPECT_TRUE(IconThemeIndexes::isBetter(scalable, fixed48, 44));
    EXPECT_TRUE(IconThemeIndexes::isBetter(fixed48, scalable, 48));
    EXPECT_TRUE(IconThemeIndexes::isBetter(fixed48, fixed256, 44));
    EXPECT_TRUE(IconThemeIndexes::isBetter(fixed256, fixed32, 44));
    EXPECT_TRUE(IconThemeIndexes::isBetter(fixed48, fixed32, 64));
}

/// Icon themes made of empty files in a temporary folder.
class IconThemeTest : public testing::Test {
protected:
    void write(const std::string& path, const std::string& content = {}) const {
        const fs::path file = folder.path() / path;
        fs::create_directories(file.parent_path());
        std::ofstream{file} << content;
    }

    void addTheme(const std::string& name, const std::string& inherits = {}) const {
        write("icons/" + name + "/index.theme",
              "[Icon Theme]\nInherits=" + inherits +
                  "\nDirectories=48x48/apps,256x256/apps,scalable/apps\n"
                  "[48x48/apps]\nSize=48\nType=Fixed\n[256x256/apps]\nSize=256\nType=Fixed\n"
                  "[scalable/apps]\nSize=64\nMinSize=8\nMaxSize=512\nType=Scalable\n");
    }

    [[nodiscard]] IconTheme::Folders folders() const {
        const std::string root = folder.path().string();
        return {{root + "/mine", root + "/icons"}, {root + "/pixmaps"}};
    }

    [[nodiscard]] std::string find(const std::string& theme, const std::string& icon,
                                   int side = 44) const {
        const auto path = IconTheme{folders(), theme}.find(icon, side);
        return path ? fs::relative(*path, folder.path()).string() : "";
    }

    test::TemporaryFolder folder;
};

TEST_F(IconThemeTest, NeverTakesASmallerPictureWhereALargerExists) {
    addTheme("A");
    write("icons/A/48x48/apps/x.png");
    write("icons/A/256x256/apps/x.png");
    EXPECT_EQ(find("A", "x", 44), "icons/A/48x48/apps/x.png");
    EXPECT_EQ(find("A", "x", 88), "icons/A/256x256/apps/x.png");
    EXPECT_EQ(find("A", "x", 300), "icons/A/256x256/apps/x.png");
}

TEST_F(IconThemeTest, PrefersADrawingToAPictureOfAnotherSize) {
    addTheme("A");
    write("icons/A/48x48/apps/x.png");
    write("icons/A/scalable/apps/x.svg");
    EXPECT_EQ(find("A", "x", 88), "icons/A/scalable/apps/x.svg");
    EXPECT_EQ(find("A", "x", 48), "icons/A/48x48/apps/x.png");
}

TEST_F(IconThemeTest, GoesThroughParentsToHicolorAndToThePicturesWithoutATheme) {
    addTheme("A", "B");
    addTheme("B");
    addTheme("hicolor");
    write("icons/B/48x48/apps/in-parent.png");
    write("icons/hicolor/48x48/apps/in-hicolor.png");
    write("pixmaps/alone.xpm");
    EXPECT_EQ(find("A", "in-parent"), "icons/B/48x48/apps/in-parent.png");
    EXPECT_EQ(find("A", "in-hicolor"), "icons/hicolor/48x48/apps/in-hicolor.png");
    EXPECT_EQ(find("A", "alone"), "pixmaps/alone.xpm");
    EXPECT_EQ(find("A", "nowhere"), "");
}

TEST_F(IconThemeTest, TakesTheNearestThemeThatHasTheIconAtAnySize) {
    addTheme("A", "B");
    addTheme("B");
    write("icons/A/256x256/apps/x.png");
    write("icons/B/48x48/apps/x.png");
    EXPECT_EQ(find("A", "x", 48), "icons/A/256x256/apps/x.png");
}

TEST_F(IconThemeTest, EndsLoopsOfParents) {
    addTheme("A", "B");
    addTheme("B", "A,B");
    write("icons/B/48x48/apps/x.png");
    EXPECT_EQ(find("A", "x"), "icons/B/48x48/apps/x.png");
    EXPECT_EQ(find("A", "y"), "");
}

TEST_F(IconThemeTest, FindsWhatTheUserAddedToATheme) {
    addTheme("hicolor");
    write("mine/hicolor/256x256/apps/x.png");
    write("icons/hicolor/256x256/apps/x.png");
    EXPECT_EQ(find("hicolor", "x"), "mine/hicolor/256x256/apps/x.png");
}

TEST_F(IconThemeTest, FallsBackOnHicolorWithoutTheTheme) {
    addTheme("hicolor");
    write("icons/hicolor/48x48/apps/x.png");
    for (const char* name : {"missing", "", "..", "../icons/hicolor", "/etc"}) {
        EXPECT_EQ(find(name, "x"), "icons/hicolor/48x48/apps/x.png") << name;
    }
}

TEST_F(IconThemeTest, KnowsNoNamesThatLeadElsewhere) {
    addTheme("hicolor");
    write("icons/hicolor/48x48/apps/x.png");
    write("secret.png");
    for (const std::string& name :
         {std::string{}, std::string{"."}, std::string{".."}, std::string{"../../../../secret"},
          std::string{"/etc/x"}, std::string("x\0y", 3), std::string(5000, 'x')}) {
        EXPECT_EQ(find("hicolor", name), "");
    }
}

TEST_F(IconThemeTest, LooksIntoTheFoldersWhenACacheDoesNotKnow) {
    addTheme("A");
    write("icons/A/48x48/apps/x.png");
    // Newer than the folder.
    write("icons/A/icon-theme.cache", cacheWithoutIcons());
    EXPECT_EQ(find("A", "x"), "icons/A/48x48/apps/x.png");
}

TEST_F(IconThemeTest, IsChosenByTheSettingsDaemonBeforeFiles) {
    addTheme("Daemon");
    addTheme("File");
    write("settings.ini", "[Settings]\ngtk-icon-theme-name = \"File\"\n");
    const ChosenIconTheme::Files files{{}, {(folder.path() / "settings.ini").string()}, false};
    EXPECT_EQ(ChosenIconTheme::name(folders(), {{"Net/IconThemeName", "Daemon"}}, files), "Daemon");
    EXPECT_EQ(ChosenIconTheme::name(folders(), {}, files), "File");
    EXPECT_EQ(ChosenIconTheme::name(folders(), {{"Net/IconThemeName", "Missing"}}, files), "File");
}

TEST_F(IconThemeTest, IsKDEsChoiceUnderKDEOnly) {
    addTheme("breeze-dark");
    addTheme("Adwaita");
    write("kdeglobals", "[Icons]\nTheme=breeze-dark\n");
    ChosenIconTheme::Files files{{(folder.path() / "kdeglobals").string()}, {}, true};
    EXPECT_EQ(ChosenIconTheme::name(folders(), {}, files), "breeze-dark");
    files.isKDE = false;
    EXPECT_EQ(ChosenIconTheme::name(folders(), {}, files), "Adwaita");
}

TEST_F(IconThemeTest, IsHicolorWhereNoOtherIsInstalled) {
    EXPECT_EQ(ChosenIconTheme::name(folders(), {}, {}), "hicolor");
}

}
}
