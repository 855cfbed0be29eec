#include "Applications/ClientWindows/WindowIconSource.hpp"
#include "Applications/DesktopEntryCatalog.hpp"
#include "Icons/IconImage.hpp"
#include "Icons/ThemeIcons.hpp"
#include "Linux/Environment.hpp"
#include "Linux/EventLoop.hpp"
#include "Support/FakeRunLoop.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace vireline::xdg {
namespace {

namespace fs = std::filesystem;

constexpr Size tile{44, 44};

class Windows final : public WindowIconSource {
public:
    [[nodiscard]] std::vector<WindowIcon> windowIcons(const std::string& bundleID) const override {
        const auto found = icons.find(bundleID);
        return found == icons.end() ? std::vector<WindowIcon>{} : found->second;
    }

    std::map<std::string, std::vector<WindowIcon>> icons;
};

WindowIcon plain(std::uint32_t side, std::uint32_t pixel) {
    return {side, side, std::vector<std::uint32_t>(std::size_t{side} * side, pixel)};
}

/// A theme whose icons differ in colour, and desktop entries that name them.
class ThemeIconsTest : public testing::Test {
protected:
    ThemeIconsTest() {
        test::testApplication();
        write("icons/hicolor/index.theme",
              "[Icon Theme]\nDirectories=48/all\n[48/all]\nSize=48\nType=Fixed\n");
        addIcon("icons/hicolor/48/all/application-x-executable.png", Qt::gray);
    }

    void write(const std::string& path, const std::string& content) const {
        const fs::path file = folder.path() / path;
        fs::create_directories(file.parent_path());
        std::ofstream{file} << content;
    }

    std::string addIcon(const std::string& path, const QColor& colour, int side = 48) const {
        write(path, "");
        QImage image{side, side, QImage::Format_ARGB32};
        image.fill(colour);
        const std::string file = (folder.path() / path).string();
        image.save(QString::fromStdString(file), "PNG");
        return file;
    }

    /// Returns the entry's path.
    std::string addEntry(const std::string& id, const std::string& icon) const {
        write("applications/" + id + ".desktop",
              "[Desktop Entry]\nType=Application\nName=x\nExec=/bin/sh\nIcon=" + icon + "\n");
        return (folder.path() / "applications" / (id + ".desktop")).string();
    }

    ThemeIcons& icons() {
        if (!catalog_) {
            const std::string root = folder.path().string();
            catalog_ = std::make_unique<DesktopEntryCatalog>(
                loop_, std::vector{FileURL::fromPath(root + "/applications")});
            const IconTheme::Folders folders{{root + "/icons"}, {}};
            icons_ = std::make_unique<ThemeIcons>(
                *catalog_, windows, std::make_shared<const IconTheme>(folders, "hicolor"));
        }
        return *icons_;
    }

    static QColor colour(const ImageHandle& image, int side = 44) {
        const auto* raster = dynamic_cast<const IconImage*>(image.get());
        if (raster == nullptr)
            return {};
        const QImage picture = raster->exact(side);
        EXPECT_EQ(picture.size(), QSize(side, side));
        return picture.pixelColor(side / 2, side / 2);
    }

    test::TemporaryFolder folder;
    Windows windows;

private:
    test::FakeRunLoop loop_;
    std::unique_ptr<DesktopEntryCatalog> catalog_;
    std::unique_ptr<ThemeIcons> icons_;
};

TEST_F(ThemeIconsTest, TakesTheThemesIconThatTheEntryNames) {
    addIcon("icons/hicolor/48/all/mailer.png", Qt::red);
    const std::string path = addEntry("mail", "mailer");
    EXPECT_EQ(colour(icons().iconForFile(path, "mail", tile)), QColor(Qt::red));
    EXPECT_EQ(colour(icons().iconForFile("/nowhere/mail.desktop", "mail", tile)), QColor(Qt::red));
}

TEST_F(ThemeIconsTest, ForgivesAnExtensionBehindTheName) {
    addIcon("icons/hicolor/48/all/mailer.png", Qt::red);
    EXPECT_EQ(colour(icons().iconForFile(addEntry("mail", "mailer.png"), "mail", tile)),
              QColor(Qt::red));
}

TEST_F(ThemeIconsTest, TakesTheFileThatTheEntryNames) {
    const std::string file = addIcon("own/icon.png", Qt::green, 256);
    EXPECT_EQ(colour(icons().iconForFile(addEntry("mail", file), "mail", tile)), QColor(Qt::green));
}

TEST_F(ThemeIconsTest, TakesEveryIconFromAnotherThemeOnceThatIsChosen) {
    addIcon("icons/hicolor/48/all/mailer.png", Qt::red);
    write("icons/other/index.theme", "[Icon Theme]\nDirectories=all\n[all]\nSize=48\n");
    addIcon("icons/other/all/mailer.png", Qt::blue);
    const std::string path = addEntry("mail", "mailer");
    const ImageHandle before = icons().iconForFile(path, "mail", tile);
    int changes = 0;
    const auto subscription = icons().observeChanges([&] { ++changes; });

    const IconTheme::Folders folders{{(folder.path() / "icons").string()}, {}};
    icons().setTheme(std::make_shared<const IconTheme>(folders, "other"));

    EXPECT_EQ(changes, 1);
    EXPECT_EQ(colour(icons().iconForFile(path, "mail", tile)), QColor(Qt::blue));
    EXPECT_EQ(colour(before), QColor(Qt::red));
}

TEST_F(ThemeIconsTest, FindsTheIconOfAnActionByItsNameOrItsFileAndHasNoOther) {
    constexpr Size entry{16, 16};
    addIcon("icons/hicolor/48/all/mail-new.png", Qt::red);
    const std::string file = addIcon("own/action.png", Qt::green);

    EXPECT_EQ(colour(icons().actionIcon("mail-new", entry), 16), QColor(Qt::red));
    EXPECT_EQ(colour(icons().actionIcon(file, entry), 16), QColor(Qt::green));
    EXPECT_EQ(icons().actionIcon("missing", entry), nullptr);
}

TEST_F(ThemeIconsTest, TellsWhetherAnIconLeadsToAPicture) {
    addIcon("icons/hicolor/48/all/mailer.png", Qt::red);
    const std::string file = addIcon("own/icon.png", Qt::green);

    for (const std::string& icon : {std::string{"mailer"}, std::string{"mailer.png"}, file})
        EXPECT_TRUE(icons().has(icon)) << icon;
    for (const char* const icon : {"nothing", "/no/such/file.png", ""})
        EXPECT_FALSE(icons().has(icon)) << icon;
}

TEST_F(ThemeIconsTest, ReadsAnEntryOutsideTheApplicationFolders) {
    addIcon("icons/hicolor/48/all/mailer.png", Qt::red);
    write("elsewhere/mail.desktop",
          "[Desktop Entry]\nType=Application\nName=x\nExec=/bin/sh\nIcon=mailer\n");
    const std::string path = (folder.path() / "elsewhere/mail.desktop").string();
    EXPECT_EQ(colour(icons().iconForFile(path, "other", tile)), QColor(Qt::red));
}

TEST_F(ThemeIconsTest, TakesTheWindowsPictureWithoutAnEntry) {
    windows.icons["odd"] = {plain(16, 0xff0000ff), plain(64, 0xffff0000), plain(128, 0xff00ff00)};
    const ImageHandle image = icons().iconForFile("/opt/odd", "odd", tile);
    EXPECT_EQ(colour(image, 44), QColor(Qt::red));
    EXPECT_EQ(colour(image, 88), QColor(Qt::green));
    EXPECT_EQ(colour(image, 300), QColor(Qt::green));
}

TEST_F(ThemeIconsTest, IgnoresAWindowsPictureThatLies) {
    windows.icons["odd"] = {{64, 64, {0xffff0000}}, {100'000, 100'000, {}}};
    EXPECT_EQ(colour(icons().iconForFile("/opt/odd", "odd", tile)), QColor(Qt::gray));
}

// Behaviour: icon-store-2
TEST_F(ThemeIconsTest, IsGenericWhereNothingElseIs) {
    EXPECT_EQ(colour(icons().iconForFile("/opt/none", "none", tile)), QColor(Qt::gray));
    EXPECT_EQ(colour(icons().iconForFile(addEntry("a", "no-such-icon"), "a", tile)),
              QColor(Qt::gray));
    EXPECT_EQ(colour(icons().iconForFile(addEntry("b", "/no/such/file.png"), "b", tile)),
              QColor(Qt::gray));
}

TEST_F(ThemeIconsTest, IsGenericForADamagedFile) {
    write("icons/hicolor/48/all/broken.png", "no picture");
    write("own/broken.png", "no picture");
    const std::string named = addEntry("a", "broken");
    const std::string direct = addEntry("b", (folder.path() / "own/broken.png").string());
    EXPECT_EQ(colour(icons().iconForFile(named, "a", tile)), QColor(Qt::gray));
    EXPECT_EQ(colour(icons().iconForFile(direct, "b", tile)), QColor(Qt::gray));
}

TEST_F(ThemeIconsTest, IsDrawnWhereTheThemeHasNotEvenTheGenericOne) {
    fs::remove_all(folder.path() / "icons");
    EXPECT_EQ(colour(icons().iconForFile("/opt/none", "none", tile)).alpha(), 255);
}

TEST_F(ThemeIconsTest, KnowsFoldersByTheirPurpose) {
    const test::EnvironmentVariable home{"HOME", folder.path().string()};
    addIcon("icons/hicolor/48/all/folder.png", Qt::blue);
    fs::create_directories(folder.path() / "some/folder");
    EXPECT_EQ(colour(icons().iconForFile((folder.path() / "some/folder").string(), "k", tile)),
              QColor(Qt::blue));
}

TEST_F(ThemeIconsTest, KnowsTheTrashByItsName) {
    EXPECT_EQ(icons().namedImage("NSTrashEmpty", tile), nullptr);
    EXPECT_EQ(icons().namedImage("NSOther", tile), nullptr);
    const ImageHandle drawn = icons().symbol("trash.fill", "Trash", tile);
    ASSERT_NE(drawn, nullptr);
    EXPECT_GT(colour(drawn).alpha(), 0);
    EXPECT_EQ(icons().symbol("other", "", tile), nullptr);
    addIcon("icons/hicolor/48/all/user-trash.png", Qt::yellow);
    EXPECT_EQ(colour(icons().namedImage("NSTrashEmpty", tile)), QColor(Qt::yellow));
}

}
}
