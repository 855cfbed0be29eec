/// Untrusted texts become nothing but arguments, the program's files are private to its user, and
/// only clients that may use the display can reach the program.
#include "DesktopTest.hpp"

#include <sys/stat.h>
#include <sys/uio.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

class Security : public DesktopTest {
protected:
    /// A command that a shell would execute if it interpreted one of these texts.
    [[nodiscard]] std::string trap() { return "touch '" + sprung().string() + "'"; }
    [[nodiscard]] fs::path sprung() { return desktop().home().scratch() / "sprung"; }

    [[nodiscard]] bool wasOpened(const std::string& operand) {
        return eventually([&] { return readFile(opened()).contains("open " + operand + '\n'); });
    }

    static unsigned mode(const fs::path& path) {
        struct stat found{};
        return ::stat(path.c_str(), &found) == 0 ? found.st_mode & 07777U : 0;
    }

    /// Makes the X server refuse new clients, as it does for other users.
    void closeDisplay() {
        xcb_connection_t* const connection = desktop().client().get();
        // Sent manually, because xcb's list of families lacks the one of all local users.
        xcb_change_hosts_request_t change{};
        change.mode = XCB_HOST_MODE_DELETE;
        change.family = 252;
        xcb_protocol_request_t request{
            .count = 1, .ext = nullptr, .opcode = XCB_CHANGE_HOSTS, .isvoid = 1};
        // xcb needs two free entries before the first.
        std::array<iovec, 3> parts{{{}, {}, {&change, sizeof change}}};
        xcb_send_request(connection, 0, &parts.back(), &request);
        xcb_set_access_control(connection, XCB_ACCESS_CONTROL_ENABLE);
        desktop().client().sync();
    }
};

TEST_F(Security, TheWordsOfAnEntryAreArgumentsAndNotCommands) {
    auto& desktop = make({.monitors = twoMonitors()});
    const std::vector<std::string> words{"$(" + trap() + ")", "`" + trap() + "`", "; " + trap(),
                                         "| " + trap(), "&& " + trap() + " #"};
    App app{"org.example.Words", "Words", distinctColour(1), {"--record", opened().string()}};
    app.arguments.insert(app.arguments.end(), words.begin(), words.end());
    desktop.home().install(app);
    desktop.home().pin(std::vector<App>{app});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(1)));

    desktop.pointer().click(layout("right", tiles(1)).icon(0));

    for (const std::string& word : words)
        EXPECT_TRUE(wasOpened(word)) << word << " is not in " << readFile(opened());
    EXPECT_FALSE(fs::exists(sprung()));
}

TEST_F(Security, AFolderIsOpenedWhateverItIsCalled) {
    auto& desktop = make({.monitors = twoMonitors()});
    const App files = fileManager();
    desktop.home().install(files);
    desktop.home().setFileManager(files.id);
    desktop.home().pin(std::vector<App>{});
    const std::string name = "a $(touch sprung); 'touch sprung' & `touch sprung` %U";
    const fs::path folder = desktop.home().folder() / name;
    fs::create_directories(folder);
    writeFile(desktop.home().folder() / ".config/user-dirs.dirs",
              "XDG_DOWNLOAD_DIR=\"$HOME/" + name + "\"\n");
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(1)));
    const fs::path workingFolder =
        fs::read_symlink("/proc/" + std::to_string(desktop.vireline().pid()) + "/cwd");

    desktop.pointer().click(layout("right", tiles(1)).icon(1));

    EXPECT_TRUE(wasOpened(folder.string())) << readFile(opened());
    EXPECT_FALSE(fs::exists(workingFolder / "sprung"));
    EXPECT_FALSE(fs::exists(desktop.home().folder() / "sprung"));
}

TEST_F(Security, TheFolderAndTheLogAreTheUsersAloneWhateverTheUmask) {
    auto& desktop = make({.monitors = twoMonitors()});
    fs::remove_all(desktop.home().dataFolder());
    desktop.startVirelineThrough({"sh", "-c", "umask 0; exec \"$0\""});

    ASSERT_TRUE(logs("Vireline started"));

    EXPECT_EQ(mode(desktop.home().dataFolder()), 0700U);
    EXPECT_EQ(mode(desktop.home().log()), 0600U);
}

TEST_F(Security, AStartWithoutAccessToTheDisplayHasNoEffect) {
    runWithTwoDisplays(someApps(1));
    ASSERT_TRUE(docksSettle(tiles(1)));
    closeDisplay();
    const auto errors = desktop().home().scratch() / "second.err";

    ChildProcess second{
        {testedPrograms().vireline.string(), {}, desktop().environment(), {}, errors, {}}};

    EXPECT_EQ(second.waitForExit(), 1);
    EXPECT_TRUE(readFile(errors).contains("vireline: no X display")) << readFile(errors);
    const auto windows = desktop().client().managedWindows();
    EXPECT_TRUE(std::ranges::none_of(windows, [&](xcb_window_t window) {
        return desktop().client().text(window, "_NET_WM_NAME").contains("Settings");
    }));
    EXPECT_TRUE(desktop().vireline().isRunning());
}

}
}
