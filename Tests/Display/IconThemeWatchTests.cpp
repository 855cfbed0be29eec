#include "Display/WindowTest.hpp"
#include "Icons/Themes/IconThemeWatch.hpp"
#include "Settings/XSettingsDaemon.hpp"
#include "Support/TemporaryFolder.hpp"
#include "Toolkit/QtRunLoop.hpp"
#include "VirtualDesktop/Session/WidgetTheme.hpp"

#include <filesystem>
#include <fstream>
#include <string>

namespace vireline::test {
namespace {

namespace fs = std::filesystem;

class IconThemeWatchTest : public WindowTest {
protected:
    IconThemeWatchTest() {
        for (const char* const theme : {"one", "two"})
            write(folder_.path() / "icons" / theme / "index.theme", "[Icon Theme]\n");
    }
    void TearDown() override {
        if (daemon_ != XCB_NONE)
            client().destroy(daemon_);
        client().sync();
        WindowTest::TearDown();
    }

    void startDaemon(std::string_view theme) {
        daemon_ = desktop::announceIconTheme(client(), theme);
    }
    void choose(std::string_view theme) const {
        desktop::changeIconTheme(client(), daemon_, theme);
    }
    void writeSettings(const std::string& theme) const {
        write(settings(), "[Settings]\ngtk-icon-theme-name=" + theme + "\n");
    }
    void removeSettings() const { fs::remove(settings()); }

    [[nodiscard]] xdg::IconThemeWatch makeWatch() {
        return {settingsDaemon_,
                runLoop_,
                {.folders = {.themes = {(folder_.path() / "icons").string()}, .pictures = {}},
                 .files = {.kdeglobals = {},
                           .gtkSettings = {settings().string()},
                           .isKDE = false,
                           .usersOwn = {settings().string()}}}};
    }

private:
    static void write(const fs::path& file, const std::string& text) {
        fs::create_directories(file.parent_path());
        std::ofstream{file} << text;
    }
    [[nodiscard]] fs::path settings() const { return folder_.path() / "config/settings.ini"; }

    TemporaryFolder folder_;
    xdg::QtRunLoop runLoop_;
    x11::XSettingsDaemon settingsDaemon_{connection};
    xcb_window_t daemon_ = XCB_NONE;
};

TEST_F(IconThemeWatchTest, FollowsTheSettingsDaemon) {
    startDaemon("one");
    auto watch = makeWatch();
    int changes = 0;
    watch.onChange = [&] { ++changes; };
    ASSERT_EQ(watch.name(), "one");

    choose("two");

    EXPECT_TRUE(eventually([&] { return watch.name() == "two"; }));
    EXPECT_EQ(changes, 1);
}

TEST_F(IconThemeWatchTest, FollowsASettingsDaemonThatComesLater) {
    auto watch = makeWatch();
    ASSERT_EQ(watch.name(), "hicolor");

    startDaemon("two");

    EXPECT_TRUE(eventually([&] { return watch.name() == "two"; }));
}

TEST_F(IconThemeWatchTest, FollowsTheUsersFileFromItsFirstLineOn) {
    auto watch = makeWatch();
    for (const char* const theme : {"one", "two"}) {
        writeSettings(theme);
        EXPECT_TRUE(eventually([&] { return watch.name() == theme; })) << theme;
    }
    removeSettings();
    EXPECT_TRUE(eventually([&] { return watch.name() == "hicolor"; }));
}

TEST_F(IconThemeWatchTest, DoesNotReportAChoiceThatChangesNothing) {
    startDaemon("one");
    auto watch = makeWatch();
    int changes = 0;
    watch.onChange = [&] { ++changes; };

    choose("not installed");
    writeSettings("one");
    choose("one");
    choose("two");

    EXPECT_TRUE(eventually([&] { return changes > 0; }));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(watch.name(), "two");
}

}
}
