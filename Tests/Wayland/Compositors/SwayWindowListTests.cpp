/// The list of windows under a real sway, and what apps can be asked through it.
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/DesktopRunningApplications.hpp"
#include "Compositors/Sway/SwayWindowList.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Toolkit/QtRunLoop.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "Wayland/Compositors/SwayTest.hpp"
#include "Wayland/Fakes/SilentNotices.hpp"

#include <unistd.h>
#include <wayland-client.h>

#include <algorithm>
#include <csignal>
#include <set>

namespace vireline::wayland {
namespace {

class SwayWindowListTest : public SwayTest {
protected:
    void SetUp() override {
        list_ = SwayWindowList::open(desk().socket(), getpid());
        ASSERT_NE(list_, nullptr);
        apps_.emplace(*list_, notices_, runLoop_, catalog_);
    }
    void TearDown() override {
        apps_.reset();
        list_.reset();
        SwayTest::TearDown();
    }

    desktop::ChildProcess& run(const std::string& id, int windows = 1) {
        auto& process = desk().run({"--class", id, "--windows", std::to_string(windows)});
        EXPECT_TRUE(test::waitUntil([&] { return count(id) == windows && isActive(id); }));
        return process;
    }
    [[nodiscard]] int count(const std::string& id) const {
        return static_cast<int>(apps_->windows(id).size());
    }
    [[nodiscard]] bool isActive(const std::string& id) const {
        const auto instances = apps_->instances(id);
        return !instances.empty() && instances.front().isActive;
    }
    void hide(const std::string& id) { apps_->hide(apps_->instances(id).at(0)); }
    [[nodiscard]] bool allHidden(const std::string& id) const {
        return std::ranges::all_of(apps_->windows(id), &xdg::ClientWindow::isHidden);
    }

    xdg::QtRunLoop runLoop_;
    xdg::DesktopEntryCatalog catalog_{runLoop_, {}};
    SilentNotices notices_;
    std::unique_ptr<SwayWindowList> list_;
    std::optional<xdg::DesktopRunningApplications> apps_;
};

TEST_F(SwayWindowListTest, IsNotAskedOnTheSocketOfAnotherCompositor) {
    const Proxy<wl_display> display{wl_display_connect(desk().display().c_str())};
    ASSERT_NE(display, nullptr);
    const pid_t compositor = WaylandConnection{display.get()}.compositor();

    EXPECT_EQ(compositor, desk().process());
    EXPECT_EQ(SwayConnection::socketOf(desk().socket(), compositor), desk().socket());
    EXPECT_EQ(SwayConnection::socketOf(desk().socket(), getpid()), "");
    EXPECT_EQ(SwayConnection::socketOf("/no/such/socket", compositor), "");
}

TEST_F(SwayWindowListTest, ListsAppsAndTheirWindowsOldestFirst) {
    const auto& process = run("org.example.one", 2);
    run("org.example.two");

    const auto running = apps_->running();
    ASSERT_EQ(running.size(), 2U);
    EXPECT_EQ(running[0].bundleID, "org.example.one");
    EXPECT_EQ(running[0].processIdentifier, process.pid());
    EXPECT_EQ(running[1].bundleID, "org.example.two");
    const auto windows = apps_->windows("org.example.one");
    EXPECT_LT(windows.at(0).id, windows.at(1).id);
    EXPECT_TRUE(windows.at(0).isOrdinary);
}

TEST_F(SwayWindowListTest, ListsWhatRanBefore) {
    run("org.example.one");

    const auto later = SwayWindowList::open(desk().socket(), getpid());

    ASSERT_NE(later, nullptr);
    ASSERT_EQ(later->windows().size(), 1U);
    EXPECT_EQ(later->windows()[0].traits.className, "org.example.one");
    EXPECT_EQ(later->activeWindow(), later->windows()[0].id);
    EXPECT_GT(later->windows()[0].lastActive, 0U);
}

TEST_F(SwayWindowListTest, NoticesThatAnAppHasEnded) {
    run("org.example.one");
    std::vector<std::string> ended;
    const auto watch = apps_->observeDidTerminate([&](const auto& app) {
        ended.push_back(app.value_or(RunningApplication{}).bundleID.value_or(""));
    });

    run("org.example.two").signal(SIGKILL);

    EXPECT_TRUE(test::waitUntil([&] { return !ended.empty(); }));
    EXPECT_EQ(ended, std::vector<std::string>{"org.example.two"});
    EXPECT_TRUE(test::waitUntil([&] { return isActive("org.example.one"); }));
}

TEST_F(SwayWindowListTest, SaysWhichAppDemandsAttentionUntilItHasTheFocus) {
    run("org.example.one");
    run("org.example.two");
    using Names = std::set<std::string>;
    EXPECT_EQ(apps_->attention(), (AppAttention{{}, "org.example.two"}));

    desk().command("[app_id=org.example.one] urgent enable");
    EXPECT_TRUE(
        test::waitUntil([&] { return apps_->attention().demanding == Names{"org.example.one"}; }));
    EXPECT_EQ(apps_->attention().active, "org.example.two");

    EXPECT_TRUE(apps_->bringForward("org.example.one"));
    EXPECT_TRUE(
        test::waitUntil([&] { return apps_->attention() == AppAttention{{}, "org.example.one"}; }));
}

TEST_F(SwayWindowListTest, FollowsTheFocus) {
    run("org.example.one");
    run("org.example.two");
    EXPECT_FALSE(isActive("org.example.one"));

    EXPECT_TRUE(apps_->bringForward("org.example.one"));

    EXPECT_TRUE(test::waitUntil([&] { return isActive("org.example.one"); }));
    EXPECT_FALSE(isActive("org.example.two"));
    desk().command("workspace 7");
    EXPECT_TRUE(test::waitUntil([&] { return !isActive("org.example.one"); }));
}

TEST_F(SwayWindowListTest, HidesAnAppAndBringsItsWindowsBackToTheirPlaces) {
    run("org.example.one", 2);
    const auto before = desk().windows("org.example.one");

    hide("org.example.one");
    EXPECT_FALSE(isActive("org.example.one"));
    EXPECT_TRUE(test::waitUntil([&] { return allHidden("org.example.one"); }));
    for (const SwayWindow& window : desk().windows("org.example.one"))
        EXPECT_TRUE(window.isInScratchpad);

    EXPECT_TRUE(apps_->bringForward("org.example.one"));
    EXPECT_TRUE(test::waitUntil([&] {
        return isActive("org.example.one") &&
               std::ranges::none_of(apps_->windows("org.example.one"),
                                    &xdg::ClientWindow::isHidden);
    }));
    for (const SwayWindow& window : desk().windows("org.example.one")) {
        EXPECT_FALSE(window.isFloating);
        EXPECT_EQ(window.workspace, before.at(0).workspace);
    }
}

TEST_F(SwayWindowListTest, BringsAWindowBackToTheWorkspaceThatItWasOn) {
    run("org.example.one");
    desk().command("floating enable, resize set 500 px 400 px, move absolute position 200 100");
    EXPECT_TRUE(desktop::eventually([] { return desk().isSettled(); }));
    const auto before = desk().windows("org.example.one").at(0);
    hide("org.example.one");
    EXPECT_TRUE(test::waitUntil([&] { return allHidden("org.example.one"); }));
    desk().command("workspace 5");

    EXPECT_TRUE(apps_->bringForward("org.example.one"));

    EXPECT_TRUE(test::waitUntil([&] { return isActive("org.example.one"); }));
    const auto after = desk().windows("org.example.one").at(0);
    EXPECT_EQ(after, before);
}

TEST_F(SwayWindowListTest, HidesAndBringsBackInQuickSuccession) {
    run("org.example.one", 3);

    for (int round = 0; round < 5; ++round) {
        hide("org.example.one");
        EXPECT_FALSE(isActive("org.example.one"));
        EXPECT_TRUE(apps_->bringForward("org.example.one"));
    }

    EXPECT_TRUE(test::waitUntil([&] {
        const auto windows = desk().windows("org.example.one");
        return isActive("org.example.one") &&
               std::ranges::none_of(windows, &SwayWindow::isFloating);
    }));
}

TEST_F(SwayWindowListTest, BringsForwardWhatTheUserHasPutIntoTheScratchpad) {
    run("org.example.one");
    desk().command("move scratchpad");
    EXPECT_TRUE(test::waitUntil([&] { return allHidden("org.example.one"); }));

    EXPECT_TRUE(apps_->bringForward("org.example.one"));

    EXPECT_TRUE(test::waitUntil([&] { return isActive("org.example.one"); }));
}

TEST_F(SwayWindowListTest, AsksAppsToQuit) {
    auto& process = run("org.example.one", 2);

    apps_->terminate(apps_->instances("org.example.one").at(0));

    EXPECT_TRUE(test::waitUntil([&] { return apps_->running().empty(); }));
    EXPECT_EQ(process.waitForExit(), 0);
}

TEST_F(SwayWindowListTest, IdentifiesAWindowWithoutAppIDByItsProgram) {
    const auto& process = desk().run({});
    EXPECT_TRUE(test::waitUntil([&] { return !apps_->running().empty(); }));

    EXPECT_EQ(apps_->running().at(0).processIdentifier, process.pid());
}

TEST_F(SwayWindowListTest, ListsAWindowWithATitleOfAMegabyte) {
    desk().run({"--class", "org.example.long", "--title-bytes", "1048576"});
    EXPECT_TRUE(test::waitUntil([&] { return count("org.example.long") == 1; }));

    run("org.example.one");
}

TEST_F(SwayWindowListTest, KnowsTitlesAlsoAfterTheyChange) {
    run("org.example.one");

    desk().run({"--class", "org.example.late", "--title", "first", "--retitle", "second"});

    EXPECT_TRUE(test::waitUntil([&] {
        const auto& all = list_->windows();
        return all.size() == 2 && list_->titles(std::vector{all[1].id}).at(0) == "second";
    }));
}

TEST_F(SwayWindowListTest, DoesNotListTheProgramsOwnWindows) {
    const auto& ours = run("org.example.ours");
    run("org.example.other");

    const auto list = SwayWindowList::open(desk().socket(), ours.pid());

    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->windows().size(), 1U);
    EXPECT_EQ(list->windows()[0].traits.className, "org.example.other");
}

TEST(SwayWindowListOpening, FailsWithoutSway) {
    test::testApplication();

    EXPECT_EQ(SwayWindowList::open({}, getpid()), nullptr);
    EXPECT_EQ(SwayWindowList::open("/nonexistent/sway.sock", getpid()), nullptr);
    EXPECT_EQ(SwayWindowList::open(std::string(4096, 'x'), getpid()), nullptr);
}

TEST(SwayWindowListEnd, GoesOnWithWhatItKnewWhenSwayDies) {
    test::testApplication();
    std::optional<SwayDesktop> desk;
    desk.emplace();
    const auto list = SwayWindowList::open(desk->socket(), getpid());
    ASSERT_NE(list, nullptr);
    desk->run({"--class", "org.example.one"});
    EXPECT_TRUE(test::waitUntil([&] { return list->windows().size() == 1; }));

    desk.reset();
    test::deliverPendingEvents();

    EXPECT_LE(list->windows().size(), 1U);
    list->activate(xdg::WindowID{7});
    test::deliverPendingEvents();
}

}
}
