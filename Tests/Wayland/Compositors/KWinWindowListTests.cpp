/// KWin's list of windows under a real KWin.
#include "App/WaylandSession.hpp"
#include "Wayland/Compositors/KWinTest.hpp"

#include <unistd.h>

#include <algorithm>
#include <fstream>

namespace vireline::wayland {
namespace {

using KWinWindowList = KWinTest;

TEST_F(KWinWindowList, KnowsProgramsTheirProcessesAndTitles) {
    const pid_t first = run("org.example.first", {"--title", "One"});
    const pid_t second = run("org.example.second");
    ASSERT_TRUE(eventually([&] { return list_->activeWindow() == window(1).id; }));

    const auto later = PlasmaWindowList::create(*connection_, "org.example.ours");

    ASSERT_EQ(later->windows().size(), 2U);
    EXPECT_EQ(later->windows()[0].traits.className, "org.example.first");
    EXPECT_EQ(later->windows()[0].processIdentifier, first);
    EXPECT_EQ(later->windows()[1].processIdentifier, second);
    EXPECT_EQ(later->activeWindow(), later->windows()[1].id);
    EXPECT_GT(later->windows()[1].lastActive, later->windows()[0].lastActive);
    EXPECT_EQ(later->titles(std::array{later->windows()[0].id}).at(0).find("One"), 0U);
    EXPECT_EQ(later->details(later->windows()[0].id)->frame.size(), (Size{320, 200}));
}

TEST_F(KWinWindowList, HidesAndBringsBack) {
    run("org.example.one");
    const auto id = window(0).id;
    ASSERT_TRUE(eventually([&] { return list_->activeWindow() == id; }));

    list_->iconify(id);
    EXPECT_TRUE(eventually(
        [&] { return window(0).isHidden && list_->activeWindow() == xdg::WindowID::none; }));
    EXPECT_TRUE(actual(id).isMinimised);

    list_->restore(id);
    list_->activate(id);
    EXPECT_TRUE(eventually([&] { return !window(0).isHidden && list_->activeWindow() == id; }));
    EXPECT_FALSE(actual(id).isMinimised);
}

TEST_F(KWinWindowList, BringsTheOtherProgramForward) {
    run("org.example.one");
    run("org.example.two");
    ASSERT_TRUE(eventually([&] { return list_->activeWindow() == window(1).id; }));

    list_->activate(window(0).id);

    EXPECT_TRUE(eventually([&] { return list_->activeWindow() == window(0).id; }));
    EXPECT_GT(window(0).lastActive, window(1).lastActive);
}

TEST_F(KWinWindowList, ClosesPolitely) {
    run("org.example.one");

    list_->close(window(0).id);

    EXPECT_TRUE(eventually([&] { return list_->windows().empty(); }));
}

TEST_F(KWinWindowList, SaysWhichWindowDemandsAttention) {
    run("org.example.one");
    run("org.example.two");
    ASSERT_TRUE(eventually([&] { return list_->activeWindow() == window(1).id; }));
    EXPECT_FALSE(window(0).isUrgent);

    desk().script("(workspace.windowList ? workspace.windowList() : workspace.clientList())"
                  ".forEach(function(window) {"
                  "  if (window.resourceClass == 'org.example.one') window.demandsAttention = true;"
                  "});");

    EXPECT_TRUE(eventually([&] { return window(0).isUrgent; }));
    EXPECT_FALSE(window(1).isUrgent);
}

TEST_F(KWinWindowList, LeavesOutItsOwnWindows) {
    const auto all = PlasmaWindowList::create(*connection_, "org.example.nothing");
    desk().run({"--class", "org.example.ours"});
    run("org.example.one");
    ASSERT_TRUE(eventually([&] { return all->windows().size() == 2; }));

    EXPECT_EQ(list_->windows().size(), 1U);
    EXPECT_EQ(window(0).traits.className, "org.example.one");
}

/// KWin checks the entry at the time of the connection, by the path of the client's program.
TEST(KWinPermission, IsForProgramsWhoseInstalledEntryAsksForIt) {
    if (!KWinDesktop::isInstalled())
        GTEST_SKIP() << "KWin is not installed";
    const test::TemporaryFolder data;
    const auto entry = data.path() / "applications" / "ours.desktop";
    std::filesystem::create_directories(entry.parent_path());
    const auto offerWith = [&](const std::string& program) {
        std::ofstream{entry} << "[Desktop Entry]\nType=Application\nName=Ours\nExec=" << program
                             << "\nX-KDE-Wayland-Interfaces=org_kde_plasma_window_management\n";
        const KWinDesktop desk{data.path()};
        const Proxy<wl_display> display{wl_display_connect(desk.display().c_str())};
        return CompositorOffer::of(display.get());
    };
    const auto self = std::filesystem::read_symlink("/proc/self/exe");

    EXPECT_EQ(offerWith(self),
              (CompositorOffer{.hasLayerShell = true, .listsWindows = true, .isKWin = true}));
    EXPECT_EQ(offerWith("/usr/bin/other"),
              (CompositorOffer{.hasLayerShell = true, .listsWindows = false, .isKWin = true}));
}

}
}
