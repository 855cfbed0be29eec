/// Hiding apps and bringing them forward under a slow window manager.
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/DesktopRunningApplications.hpp"
#include "Applications/EwmhWindowList.hpp"
#include "Applications/StartupMessenger.hpp"
#include "Display/WindowTest.hpp"
#include "Toolkit/QtRunLoop.hpp"

#include <sys/types.h>
#include <xcb/res.h>

#include <QCoreApplication>
#include <algorithm>
#include <csignal>
#include <map>
#include <string>

namespace vireline::test {
namespace {

class RunningApplicationsTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        manager_ = processOf(client().items(client().root(), "_NET_SUPPORTING_WM_CHECK").at(0));
        ASSERT_GT(manager_, 1);
        showDesktop(0);
    }
    void TearDown() override {
        resumeManager();
        for (auto& [id, process] : running_)
            process->signal(SIGKILL);
        EXPECT_TRUE(eventually([] { return client().managedWindows().empty(); }));
        showDesktop(0);
        WindowTest::TearDown();
    }

    void run(const std::string& id, int windows) {
        running_[id] = &desk().run(TEST_APP, {"--class", id, "--windows", std::to_string(windows)});
        EXPECT_TRUE(eventually([&] { return shown(id) == windows && isActive(id); }));
    }
    void hide(const std::string& id) { apps.hide(apps.instances(id).at(0)); }

    [[nodiscard]] bool isActive(const std::string& id) const {
        const auto instances = apps.instances(id);
        return !instances.empty() && instances.front().isActive;
    }
    /// The number of the app's visible windows.
    [[nodiscard]] int shown(const std::string& id) const {
        int count = 0;
        for (const auto& window : apps.windows(id))
            count += client().isViewable(x11::xcbWindow(window.id)) ? 1 : 0;
        return count;
    }
    [[nodiscard]] bool isFocused(const std::string& id) const {
        const auto active = x11::windowID(client().activeWindow());
        const auto windows = apps.windows(id);
        return std::ranges::find(windows, active, &xdg::ClientWindow::id) != windows.end();
    }

    void stopManager() const { ::kill(manager_, SIGSTOP); }
    void resumeManager() const { ::kill(manager_, SIGCONT); }

    void showDesktop(std::uint32_t desktop) {
        client().sendToRoot(client().root(), "_NET_CURRENT_DESKTOP", {desktop, XCB_CURRENT_TIME});
        EXPECT_TRUE(eventually([&] { return isDesktop(desktop); }));
        settle();
    }
    [[nodiscard]] static bool isDesktop(std::uint32_t desktop) {
        return client().items(client().root(), "_NET_CURRENT_DESKTOP") == std::vector{desktop};
    }

private:
    [[nodiscard]] static pid_t processOf(xcb_window_t window) {
        const xcb_res_client_id_spec_t spec{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        const desktop::Owned<xcb_res_query_client_ids_reply_t> reply{xcb_res_query_client_ids_reply(
            client().get(), xcb_res_query_client_ids(client().get(), 1, &spec), nullptr)};
        if (!reply)
            return 0;
        const auto item = xcb_res_query_client_ids_ids_iterator(reply.get());
        return item.rem > 0 && xcb_res_client_id_value_value_length(item.data) > 0
                   ? static_cast<pid_t>(*xcb_res_client_id_value_value(item.data))
                   : 0;
    }

    xdg::QtRunLoop runLoop_;
    xdg::DesktopEntryCatalog catalog_{runLoop_, {}};
    std::map<std::string, desktop::ChildProcess*> running_;
    pid_t manager_ = 0;

protected:
    x11::EwmhWindowList windows_{connection, runLoop_};
    x11::StartupMessenger messenger_{connection};
    xdg::DesktopRunningApplications apps{windows_, messenger_, runLoop_, catalog_};
};

TEST_F(RunningApplicationsTest, BringsAllWindowsBackThatTheWindowManagerIsStillToIconify) {
    run("many", 3);

    stopManager();
    hide("many");
    EXPECT_FALSE(isActive("many")) << "it is on its way out";
    ASSERT_TRUE(apps.bringForward("many"));
    resumeManager();

    // Switching desktops is in order with the other requests.
    showDesktop(1);
    showDesktop(0);
    EXPECT_TRUE(eventually([&] { return shown("many") == 3 && isFocused("many"); }));
}

TEST_F(RunningApplicationsTest, BringsAllWindowsBackHoweverManyOfThemAreReported) {
    run("many", 4);

    for (int round = 0; round < 5; ++round) {
        hide("many");
        // Handles the events that have arrived so far.
        QCoreApplication::processEvents();
        EXPECT_FALSE(isActive("many"));
        ASSERT_TRUE(apps.bringForward("many"));
        EXPECT_TRUE(eventually([&] { return shown("many") == 4 && isActive("many"); }));
        settle();
    }
    hide("many");
    EXPECT_TRUE(eventually([&] { return shown("many") == 0; }));
    settle();
    ASSERT_TRUE(apps.bringForward("many"));
    EXPECT_TRUE(eventually([&] { return shown("many") == 4; }));
}

TEST_F(RunningApplicationsTest, GoesToTheDesktopOfTheAppThatItBringsForward) {
    run("far", 2);
    showDesktop(1);
    EXPECT_FALSE(isActive("far"));

    ASSERT_TRUE(apps.bringForward("far"));

    EXPECT_TRUE(eventually([&] { return isDesktop(0) && isFocused("far"); }));
    EXPECT_TRUE(eventually([&] { return isActive("far"); }));
}

TEST_F(RunningApplicationsTest, StaysOnTheDesktopThatTheWindowIsBeingFetchedTo) {
    run("far", 1);
    showDesktop(1);
    const auto window = apps.windows("far").at(0).id;
    constexpr std::uint32_t fromPager = 2;

    client().sendToRoot(x11::xcbWindow(window), "_NET_WM_DESKTOP", {1, fromPager});
    client().sync();
    apps.expectOnCurrentDesktop(window);
    ASSERT_TRUE(apps.bringForward("far"));

    EXPECT_TRUE(eventually([&] { return isFocused("far") && isActive("far"); }));
    EXPECT_TRUE(isDesktop(1));
}

TEST_F(RunningApplicationsTest, IsNotFrontmostWhileAnotherDesktopIsShown) {
    run("far", 1);
    ASSERT_TRUE(isActive("far"));

    // Some window managers leave the window active.
    stopManager();
    client().setItems(client().root(), "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, {1});
    EXPECT_TRUE(eventually([&] { return !isActive("far"); }));
    client().setItems(client().root(), "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, {0});
    EXPECT_TRUE(eventually([&] { return isActive("far"); }));
}

}
}
