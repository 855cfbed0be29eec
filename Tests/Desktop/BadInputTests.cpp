/// Malformed files and windows, full disks and read-only homes: the program copes and keeps
/// running.
#include "DesktopTest.hpp"

#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <random>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

class BadInput : public DesktopTest {
protected:
    /// Creates a desktop with two installed and pinned apps, without running the program.
    VirtualDesktop& prepare() {
        auto& desktop = make({.monitors = twoMonitors()});
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().pin(apps);
        return desktop;
    }

    /// Checks that the program still does its main job: a click launches the first pinned app.
    void expectWorking() {
        ASSERT_TRUE(docksSettle(twoTiles));
        const PixelPoint tile = layout("right", twoTiles).icon(0);
        ASSERT_TRUE(turns(tile, apps[0].colour));
        desktop().pointer().click(tile);
        EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
        EXPECT_TRUE(desktop().vireline().isRunning());
    }

    /// Without preferences this counts as the first start, whose welcome window takes the focus.
    void expectWelcome() {
        const auto& client = desktop().client();
        EXPECT_TRUE(eventually([&] {
            return client.text(client.focusedWindow(), "_NET_WM_NAME") == "Welcome to Vireline";
        }));
    }

    const std::vector<App> apps = someApps(2);
    Request twoTiles = tiles(2);
};

struct Sample {
    const char* name;
    std::string beginning;
    /// Long, so made only by the test that uses it: every test's process registers all tests.
    std::string (*rest)() = [] { return std::string{}; };

    [[nodiscard]] std::string content() const { return beginning + rest(); }

    friend std::ostream& operator<<(std::ostream& out, const Sample& sample) {
        return out << sample.name;
    }
};

std::string nested(std::size_t depth, std::string_view open) {
    std::string text;
    text.reserve(depth * open.size());
    for (std::size_t i = 0; i < depth; ++i)
        text += open;
    return text;
}

std::string noise(std::size_t length) {
    constexpr unsigned seed = 20240229;
    std::mt19937 random{seed};
    std::uniform_int_distribution<int> bytes{0, 255};
    std::string text(length, '\0');
    for (auto& letter : text)
        letter = static_cast<char>(bytes(random));
    return text;
}

class BadPreferences : public BadInput, public testing::WithParamInterface<Sample> {};

TEST_P(BadPreferences, AreKeptAsTheyAreAndReplacedByDefaults) {
    auto& desktop = prepare();
    desktop.home().writePreferences(GetParam().content());
    desktop.runVireline();
    EXPECT_TRUE(logs("preferences unreadable, using defaults (file kept)"));
    expectWelcome();
    expectWorking();
    // Not EXPECT_EQ, which would print the whole content.
    EXPECT_TRUE(readFile(desktop.home().preferences()) == GetParam().content());
}

constexpr std::size_t megabyte = std::size_t{1} << 20U;
constexpr std::size_t depth = 100'000;

INSTANTIATE_TEST_SUITE_P(
    Content, BadPreferences,
    testing::Values(Sample{"Empty", ""}, Sample{"Truncated", R"({"position": "le)"},
                    Sample{"NoObject", "[1, 2, 3]"},
                    Sample{"WrongTypes", R"({"iconSize": "44", "autoHide": 1})"},
                    Sample{"UnknownPosition", R"({"position": "top"})"},
                    Sample{"EntryWithoutPath",
                           R"({"manualApps": [{"bundleID": "a", "name": "b"}]})"},
                    Sample{"Noise", "", [] { return noise(4096); }},
                    Sample{"NestedArrays", "", [] { return nested(depth, "["); }},
                    Sample{"NestedObjects", "", [] { return nested(depth, R"({"a":)"); }}),
    [](const auto& sample) { return std::string{sample.param.name}; });

class AbsurdNumbers : public BadInput, public testing::WithParamInterface<Sample> {};

TEST_P(AbsurdNumbers, StillGiveADockThatLaunches) {
    auto& desktop = prepare();
    desktop.home().writePreferences(GetParam().content());
    desktop.runVireline();
    std::vector<DockWindow> docks;
    ASSERT_TRUE(eventually([&] { return (docks = desktop.docks().shown()).size() == 1; }));
    desktop.pointer().moveTo(docks.front().frame.center());
    desktop.home().pin(std::vector{apps[0]});
    EXPECT_TRUE(logs("mirror: 1 pinned apps from Apple's Dock"));
    EXPECT_TRUE(desktop.vireline().isRunning());
}

INSTANTIATE_TEST_SUITE_P(
    Content, AbsurdNumbers,
    testing::Values(
        Sample{"HugeIcons", R"({"iconSize": 1e6})"},
        Sample{"LargestIcons", R"({"iconSize": 1.7e308})"},
        Sample{"NegativeIcons", R"({"iconSize": -1e6})"}, Sample{"NoIcons", R"({"iconSize": 0})"},
        Sample{"HugeGrowth", R"({"magnificationEnabled": true, "magnification": 1e6})"},
        Sample{"LargestGrowth", R"({"magnificationEnabled": true, "magnification": 1.7e308})"},
        Sample{"NegativeGrowth", R"({"magnificationEnabled": true, "magnification": -1e6})"},
        Sample{"AllAtOnce", R"({"iconSize": 1.7e308, "position": "left",
                           "magnificationEnabled": true, "magnification": 1.7e308})"}),
    [](const auto& sample) { return std::string{sample.param.name}; });

TEST_F(BadInput, PreferencesOfAHundredMegabytesAreKeptAndCostNoMemory) {
    auto& desktop = prepare();
    desktop.home().writePreferences("");
    constexpr std::size_t size = 100 * megabyte;
    fs::resize_file(desktop.home().preferences(), size);
    desktop.runVireline();
    expectWelcome();
    expectWorking();
    EXPECT_EQ(fs::file_size(desktop.home().preferences()), size);
}

class BadDockList : public BadInput, public testing::WithParamInterface<Sample> {};

TEST_P(BadDockList, ShowsNothingPinnedAndFollowsABetterOne) {
    auto& desktop = prepare();
    writeFile(desktop.home().dockPreferences(), GetParam().content());
    desktop.runVireline();
    EXPECT_TRUE(logs("mirror: 0 pinned apps from Apple's Dock"));
    EXPECT_TRUE(docksSettle(tiles(0)));
    desktop.home().pin(apps);
    expectWorking();
}

INSTANTIATE_TEST_SUITE_P(
    Content, BadDockList,
    testing::Values(
        Sample{"Empty", ""}, Sample{"Noise", "", [] { return noise(65536); }},
        Sample{"TruncatedXml", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>"},
        Sample{"WrongShape", "<plist version=\"1.0\"><dict><key>persistent-apps</key>"
                             "<string>none</string></dict></plist>"},
        Sample{"NestedXml", "<plist version=\"1.0\">", [] { return nested(depth, "<array>"); }},
        Sample{"BinaryNoise", "bplist00", [] { return noise(4096); }}),
    [](const auto& sample) { return std::string{sample.param.name}; });

TEST_F(BadInput, DesktopEntriesThatAreMalformedHarmNoOther) {
    auto& desktop = prepare();
    auto& home = desktop.home();
    home.installEntry("empty", "");
    home.installEntry("noise", noise(4096));
    home.installEntry("no-exec", "[Desktop Entry]\nType=Application\nName=No Exec\n");
    home.installEntry("no-name", "[Desktop Entry]\nType=Application\nExec=true\n");
    home.installEntry("no-group", "Type=Application\nName=No group\nExec=true\n");
    home.installEntry("icon-loop",
                      "[Desktop Entry]\nType=Application\nName=Loop\nExec=true\nIcon=" +
                          home.entry("icon-loop").string() + "\n");
    home.installEntry("long", "[Desktop Entry]\nType=Application\nExec=true\nName=" +
                                  std::string(megabyte, 'x') + "\n");
    home.installEntry("lies", "[Desktop Entry]\nType=Application\nExec=true\nIcon=../../../etc\n"
                              "Name=Lies\\n\\s[]\\u202e\nStartupWMClass=" +
                                  windowClass(apps[0]) + "\n");
    fs::create_symlink("circle.desktop", home.entry("circle"));
    desktop.runVireline();
    expectWorking();
}

TEST_F(BadInput, PinnedEntriesThatAreMalformedStillHaveTheirPlace) {
    auto& desktop = prepare();
    auto& home = desktop.home();
    const std::vector<App> bad{{"icon-loop", "Loop", {}, {}}, {"long", "Long", {}, {}}};
    home.installEntry("icon-loop",
                      "[Desktop Entry]\nType=Application\nName=Loop\nExec=true\nIcon=" +
                          home.entry("icon-loop").string() + "\n");
    home.installEntry("long", "[Desktop Entry]\nType=Application\nExec=true\nName=" +
                                  std::string(megabyte, 'x') + "\n");
    home.pin(std::vector{apps[0], bad[0], bad[1], apps[1]});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(4)));
    EXPECT_TRUE(turns(layout("right", tiles(4)).icon(0), apps[0].colour));
    EXPECT_TRUE(turns(layout("right", tiles(4)).icon(3), apps[1].colour));
    // A label of a megabyte is truncated and does no harm.
    desktop.pointer().moveTo(layout("right", tiles(4)).icon(2));
    desktop.pointer().click(layout("right", tiles(4)).icon(0));
    EXPECT_TRUE(eventually([&] { return desktop.isActive(apps[0]); }));
}

TEST_F(BadInput, WindowPropertiesOfAbsurdLengthAndTypeHarmNoOther) {
    auto& desktop = prepare();
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(twoTiles));
    const auto& client = desktop.client();
    const auto window = client.createWindow({100, 100, 200, 200}, 0xffffff);
    const std::string endless(megabyte, 'x');
    client.setText(window, "WM_CLASS", "STRING", endless);
    client.setItems(window, "_NET_WM_NAME", XCB_ATOM_CARDINAL, {1, 2, 3});
    client.setText(window, "_GTK_APPLICATION_ID", "../../../" + endless);
    client.setText(window, "_NET_STARTUP_ID", noise(megabyte));
    // An icon with an impossibly large size, and one that is truncated.
    client.setItems(window, "_NET_WM_ICON", XCB_ATOM_CARDINAL, {0xffffffff, 0xffffffff, 1, 2, 3});
    client.setText(window, "_NET_WM_PID", "not a number");
    client.setItems(window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, {0xffffffff, 7});
    client.setItems(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_WINDOW, {0xffffffff});
    client.map(window);
    ASSERT_TRUE(eventually([&] { return client.hasProperty(window, "WM_STATE"); }));
    // As far as the dock can tell, it is an app of its own.
    ASSERT_TRUE(docksSettle(tiles(2, 1)));
    client.setItems(window, "_NET_WM_ICON", XCB_ATOM_CARDINAL, {64, 64, 0xff00ff00});
    client.setItems(window, "WM_CLASS", XCB_ATOM_INTEGER, {42});
    client.destroy(window);
    expectWorking();
}

TEST_F(BadInput, ABogusListOfWindowsHarmsNothing) {
    auto& desktop = make({.monitors = twoMonitors(), .windowManager = false});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    const auto& client = desktop.client();
    client.setItems(client.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW,
                    {0, 1, 0xffffffff, 0x1234567});
    client.setText(client.root(), "_NET_ACTIVE_WINDOW", "nobody");
    client.setItems(client.root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {0xfffffff0});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(twoTiles));
    client.setText(client.root(), "_NET_CLIENT_LIST", noise(megabyte));
    desktop.pointer().click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(logs("click "));
    EXPECT_TRUE(desktop.vireline().isRunning());
}

TEST_F(BadInput, WindowsThatVanishWhileTheyAreAskedLeaveNothingBehind) {
    auto& desktop = prepare();
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(twoTiles));
    const auto& client = desktop.client();
    constexpr int count = 300;
    for (int i = 0; i < count; ++i) {
        const auto window = client.createWindow({100, 100, 50, 50}, 0xffffff);
        client.setText(window, "WM_CLASS", "STRING", std::string{"gone\0Gone\0", 10});
        client.map(window);
        client.destroy(window);
    }
    expectWorking();
}

/// Replaces the program's data folder by a small file system that only the program sees.
class BadDisk : public BadInput {
protected:
    void SetUp() override {
        if (geteuid() != 0)
            GTEST_SKIP() << "only root can mount a file system for a test";
    }

    /// Runs the program in a mount namespace of its own, after the shell command `mounting`.
    void runBehind(const std::string& mounting) {
        auto& process =
            desktop().startVirelineThrough({"unshare", "--mount", "--propagation", "private", "sh",
                                            "-c", mounting + " && exec \"$0\""});
        ASSERT_TRUE(docksSettle(twoTiles));
        ASSERT_TRUE(process.isRunning());
    }

    /// Preferences with both apps in the manual list.
    [[nodiscard]] std::string manualList() {
        std::string list;
        for (const auto& app : apps)
            list += (list.empty() ? "" : ",") + std::string{R"({"bundleID": ")"} + app.id +
                    R"(", "name": ")" + app.name + R"(", "path": ")" +
                    desktop().home().entry(app.id).string() + R"("})";
        return R"({"onboardingCompleted": true, "sourceMode": "manual", "manualApps": [)" + list +
               "]}";
    }

    [[nodiscard]] bool says(std::string_view message) {
        const auto output = desktop().home().scratch() / "vireline.out";
        return eventually([&] { return readFile(output).contains(message); });
    }

    void removeFirstApp() {
        const auto menu = openMenu(layout("right", twoTiles).icon(0));
        ASSERT_NE(menu, PixelRect{});
        choose(menu, 2, 3);
        ASSERT_TRUE(docksSettle(tiles(1)));
    }
};

TEST_F(BadDisk, AReadOnlyHomeStopsNothingButTheSaving) {
    auto& desktop = prepare();
    desktop.home().writePreferences(manualList());
    const auto home = desktop.home().folder().string();
    runBehind("mount --bind '" + home + "' '" + home + "' && mount -o remount,bind,ro '" + home +
              "'");
    removeFirstApp();
    EXPECT_TRUE(says("preferences save failed: "));
    EXPECT_TRUE(says("manual remove " + apps[0].id));
    EXPECT_EQ(readFile(desktop.home().preferences()), manualList());
}

TEST_F(BadDisk, AFullDiskLosesNoPreferences) {
    auto& desktop = prepare();
    const auto folder = desktop.home().dataFolder().string();
    const auto seed = desktop.home().scratch() / "seed.json";
    writeFile(seed, manualList());
    // A disk with room for nothing but the preferences.
    runBehind("mount -t tmpfs -o size=16k tmpfs '" + folder + "' && cp '" + seed.string() + "' '" +
              folder + "/preferences.json' && (cat /dev/zero > '" + folder + "/filler' || true)");
    removeFirstApp();
    EXPECT_TRUE(says("preferences save failed: "));
    // Through the program's own root, because the disk is mounted only for it.
    const fs::path inside = "/proc/" + std::to_string(desktop.vireline().pid()) + "/root" +
                            desktop.home().preferences().string();
    EXPECT_EQ(readFile(inside), manualList());
}

TEST_F(BadDisk, SavedPreferencesAreTheUsersAlone) {
    auto& desktop = prepare();
    desktop.home().writePreferences(manualList());
    fs::permissions(desktop.home().preferences(), fs::perms::all);
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(twoTiles));
    removeFirstApp();
    EXPECT_TRUE(eventually([&] {
        return fs::status(desktop.home().preferences()).permissions() ==
               (fs::perms::owner_read | fs::perms::owner_write);
    }));
}

TEST_F(BadDisk, PreferencesThatTheUserLinkedStayWhereTheyAreKept) {
    auto& desktop = prepare();
    const auto kept = desktop.home().folder() / "dotfiles/vireline.json";
    writeFile(kept, manualList());
    fs::remove(desktop.home().preferences());
    fs::create_symlink(kept, desktop.home().preferences());
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(twoTiles));
    removeFirstApp();
    EXPECT_TRUE(eventually([&] { return !readFile(kept).contains(apps[0].id); }));
    EXPECT_TRUE(readFile(kept).contains(apps[1].id));
    EXPECT_TRUE(fs::is_symlink(desktop.home().preferences()));
}

}
}
