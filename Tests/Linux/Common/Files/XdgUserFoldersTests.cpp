#include "Files/XdgUserFolders.hpp"
#include "Linux/Environment.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#include <glib.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace vireline::xdg {
namespace {

using test::EnvironmentVariable;
using test::makeFolder;

class XdgUserFoldersTest : public testing::Test {
protected:
    void SetUp() override { g_reload_user_special_dirs_cache(); }

    void nameDownloads(const std::string& value) {
        makeFolder(home.appending(".config"));
        test::overwrite(home.appending(".config/user-dirs.dirs"),
                        "XDG_DOWNLOAD_DIR=\"" + value + "\"\n");
        g_reload_user_special_dirs_cache();
    }

    test::TemporaryFolder temporary;
    FileURL home = test::urlOf(temporary.path());
    EnvironmentVariable homeVariable{"HOME", home.path()};
    EnvironmentVariable dataVariable{"XDG_DATA_HOME", std::nullopt};
    EnvironmentVariable configVariable{"XDG_CONFIG_HOME", std::nullopt};
};

TEST_F(XdgUserFoldersTest, StandsInTheHomeFolderByDefault) {
    const XdgUserFolders folders;

    EXPECT_EQ(folders.home(), home);
    EXPECT_EQ(folders.applicationSupport(), std::vector{home.appending(".local/share")});
    EXPECT_EQ(folders.configHome(), home.appending(".config"));
}

TEST_F(XdgUserFoldersTest, TakesAbsolutePathsFromTheEnvironment) {
    const EnvironmentVariable data{"XDG_DATA_HOME", "/data/mine/"};
    const EnvironmentVariable config{"XDG_CONFIG_HOME", "/config"};
    const XdgUserFolders folders;

    EXPECT_EQ(folders.applicationSupport(), std::vector{FileURL::fromPath("/data/mine")});
    EXPECT_EQ(folders.configHome(), FileURL::fromPath("/config"));
}

TEST_F(XdgUserFoldersTest, IgnoresRelativeAndEmptyPaths) {
    for (const char* senseless : {"", "relative/path", "~/share"}) {
        const EnvironmentVariable data{"XDG_DATA_HOME", senseless};
        EXPECT_EQ(XdgUserFolders{}.applicationSupport(),
                  std::vector{home.appending(".local/share")})
            << senseless;
    }
}

TEST_F(XdgUserFoldersTest, AsksTheUserDatabaseWhenHomeIsUnsetOrSenseless) {
    const passwd* entry = ::getpwuid(::geteuid());
    ASSERT_NE(entry, nullptr);
    const FileURL known = FileURL::fromPath(entry->pw_dir);

    const EnvironmentVariable unset{"HOME", std::nullopt};
    EXPECT_EQ(XdgUserFolders{}.home(), known);
    const EnvironmentVariable relative{"HOME", "here"};
    EXPECT_EQ(XdgUserFolders{}.home(), known);
}

TEST_F(XdgUserFoldersTest, HasNoDownloadsWhenThereIsNoSuchFolder) {
    EXPECT_EQ(XdgUserFolders{}.downloads(), std::nullopt);
}

TEST_F(XdgUserFoldersTest, FindsDownloadsInTheHomeFolder) {
    makeFolder(home.appending("Downloads"));

    EXPECT_EQ(XdgUserFolders{}.downloads(), home.appending("Downloads"));
}

TEST_F(XdgUserFoldersTest, FindsDownloadsWhereTheUserPutThem) {
    makeFolder(home.appending("Downloads"));
    makeFolder(home.appending("Geladen"));
    nameDownloads("$HOME/Geladen");

    EXPECT_EQ(XdgUserFolders{}.downloads(), home.appending("Geladen"));
}

TEST_F(XdgUserFoldersTest, FallsBackWhenTheNamedDownloadsAreMissingOrSwitchedOff) {
    makeFolder(home.appending("Downloads"));

    nameDownloads("$HOME/Geladen");
    EXPECT_EQ(XdgUserFolders{}.downloads(), home.appending("Downloads"));
    nameDownloads("$HOME/");
    EXPECT_EQ(XdgUserFolders{}.downloads(), home.appending("Downloads"));
}

TEST_F(XdgUserFoldersTest, AlwaysKnowsTheTrashAndNeverMakesIt) {
    const FileURL expected = home.appending(".local/share/Trash");

    EXPECT_EQ(XdgUserFolders{}.trash(), expected);

    EXPECT_EQ(expected.lastPathComponent(), "Trash");
    EXPECT_FALSE(std::filesystem::exists(expected.path()));
}

}
}
