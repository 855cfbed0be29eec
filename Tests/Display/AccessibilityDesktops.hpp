/// What the contract of `Accessibility` is tested with: desktops with programs and their windows,
/// one in memory and one under a window manager.
#pragma once

#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/DesktopRunningApplications.hpp"
#include "Applications/EwmhWindowList.hpp"
#include "Applications/StartupMessenger.hpp"
#include "ClientWindows/EwmhAccessibility.hpp"
#include "Contract/Programs.hpp"
#include "Display/WindowTest.hpp"
#include "Support/FakeAccessibility.hpp"
#include "Toolkit/QtRunLoop.hpp"

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vireline::contract {

enum class Kind : std::uint8_t { normal, dialogs, ofUnknownProcess };

class FakeDesktop : public testing::Test {
protected:
    Program run(std::size_t windows, Kind kind = Kind::normal) {
        ++started_;
        const Program program{"program-" + std::to_string(started_),
                              kind == Kind::ofUnknownProcess ? 0 : 100 + started_};
        RunningApplication app;
        app.bundleID = program.bundleID;
        app.processIdentifier = program.process;
        for (std::size_t i = 0; i < windows; ++i) {
            auto& window = port.addWindow(app, {20, 30, 320, 200});
            window.isDialog = kind == Kind::dialogs;
            windows_[program.bundleID].push_back(&window);
        }
        return program;
    }

    void activate(const Program& program, std::size_t window) {
        port.activate(*windows_[program.bundleID].at(window));
    }
    void setTitle(const Program& program, std::size_t window, const std::string& title) {
        windows_[program.bundleID].at(window)->title = title;
    }
    void hide(const Program& program, std::size_t window) {
        windows_[program.bundleID].at(window)->isHidden = true;
    }
    [[nodiscard]] bool isShown(const Program& program, std::size_t window) {
        return !windows_[program.bundleID].at(window)->isHidden;
    }
    void close(const Program& program, std::size_t window) {
        auto& windows = windows_[program.bundleID];
        port.close(*windows.at(window));
        windows.erase(windows.begin() + static_cast<std::ptrdiff_t>(window));
    }
    void end(const Program& program) {
        while (!windows_[program.bundleID].empty())
            close(program, 0);
    }

    [[nodiscard]] Rect outerFrame(const Program& program, std::size_t window) {
        return windows_[program.bundleID].at(window)->frame;
    }
    /// A size that exceeds the window's own.
    void setMinimumSize(const Program& program, std::size_t window, Size outer) {
        windows_[program.bundleID].at(window)->minimumSize = outer;
    }

    void withdrawPermission() { port.trusted = false; }
    void grantPermission() { port.trusted = true; }
    void loseTheAbilityToMoveWindows() { port.changeManager(false); }
    void regainTheAbilityToMoveWindows() { port.changeManager(true); }
    void stopAnswering() { port.answers = false; }
    void answerAgain() { port.answers = true; }

    template <class Condition>
    static bool eventually(const Condition& condition) {
        return condition();
    }

    test::FakeAccessibility port;

private:
    int started_ = 0;
    std::map<std::string, std::vector<test::FakeWindow*>> windows_;
};

class EwmhDesktop : public test::WindowTest {
protected:
    void TearDown() override {
        answerAgain();
        if (!isManaged_)
            grantPermission();
        for (auto& [bundleID, running] : running_)
            running.process->signal(SIGKILL);
        EXPECT_TRUE(eventually([] { return client().managedWindows().empty(); }));
        WindowTest::TearDown();
    }

    Program run(std::size_t windows, Kind kind = Kind::normal) {
        const std::string bundleID = "program-" + std::to_string(running_.size() + 1);
        std::vector<std::string> arguments{"--class", bundleID, "--windows",
                                           std::to_string(windows)};
        if (kind == Kind::dialogs)
            arguments.insert(arguments.end(), {"--type", "DIALOG"});
        if (kind == Kind::ofUnknownProcess)
            arguments.insert(arguments.end(), {"--property", "WM_CLIENT_MACHINE=another"});
        auto& process = desk().run(TEST_APP, std::move(arguments));
        EXPECT_TRUE(eventually([&] { return applications_.windows(bundleID).size() == windows; }));
        auto ids = windowsOf(bundleID);
        // A program numbers its windows as it makes them.
        std::ranges::sort(ids);
        running_.insert_or_assign(bundleID, Running{&process, std::move(ids)});
        return {bundleID, kind == Kind::ofUnknownProcess ? 0 : process.pid()};
    }

    void activate(const Program& program, std::size_t window) {
        constexpr std::uint32_t fromPager = 2;
        const auto id = idOf(program, window);
        client().sendToRoot(id, "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME});
        EXPECT_TRUE(eventually([&] { return client().activeWindow() == id; }));
        settle();
    }
    void setTitle(const Program& program, std::size_t window, const std::string& title) {
        client().setText(idOf(program, window), "_NET_WM_NAME", title);
        client().sync();
    }
    void hide(const Program& program, std::size_t window) {
        constexpr std::uint32_t iconicState = 3;
        client().sendToRoot(idOf(program, window), "WM_CHANGE_STATE", {iconicState});
        EXPECT_TRUE(eventually([&] { return !isShown(program, window); }));
        settle();
    }
    [[nodiscard]] bool isShown(const Program& program, std::size_t window) {
        return client().isViewable(idOf(program, window));
    }
    void close(const Program& program, std::size_t window) {
        client().destroy(idOf(program, window));
        client().sync();
        auto& windows = running_.at(program.bundleID).windows;
        windows.erase(windows.begin() + static_cast<std::ptrdiff_t>(window));
    }
    void end(const Program& program) { running_.at(program.bundleID).process->signal(SIGKILL); }

    /// Every display here has a point a pixel but the one on the right.
    [[nodiscard]] Rect outerFrame(const Program& program, std::size_t window) {
        const auto id = idOf(program, window);
        const auto inner = client().frame(id).value_or(desktop::PixelRect{});
        const Sides sides = decoration(id);
        const auto primary = desk().monitor("main").frame;
        return {inner.x - sides.left - primary.x, inner.y - sides.top - primary.y,
                inner.width + sides.left + sides.right, inner.height + sides.top + sides.bottom};
    }
    void setMinimumSize(const Program& program, std::size_t window, Size outer) {
        constexpr std::uint32_t hasMinimum = 1U << 4U;
        const auto id = idOf(program, window);
        const Sides sides = decoration(id);
        std::vector<std::uint32_t> hints(18, 0);
        hints[0] = hasMinimum;
        hints[5] = static_cast<std::uint32_t>(outer.width - sides.left - sides.right);
        hints[6] = static_cast<std::uint32_t>(outer.height - sides.top - sides.bottom);
        client().setItems(id, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
        // The window manager enlarges the window at once, and moves it too.
        EXPECT_TRUE(eventually([&] { return outerFrame(program, window).size() == outer; }));
    }

    void withdrawPermission() {
        desk().stopWindowManager();
        isManaged_ = false;
    }
    void grantPermission() {
        desk().startWindowManager();
        isManaged_ = true;
    }
    /// The window manager keeps running, but announces the abilities of one that cannot move
    /// windows.
    void loseTheAbilityToMoveWindows() {
        supported_ = client().items(client().root(), "_NET_SUPPORTED");
        auto fewer = supported_;
        std::erase(fewer, client().atom("_NET_MOVERESIZE_WINDOW"));
        client().setItems(client().root(), "_NET_SUPPORTED", XCB_ATOM_ATOM, fewer);
        client().sync();
    }
    void regainTheAbilityToMoveWindows() {
        client().setItems(client().root(), "_NET_SUPPORTED", XCB_ATOM_ATOM, supported_);
        client().sync();
    }
    static void stopAnswering() { ::kill(desk().server(), SIGSTOP); }
    static void answerAgain() { ::kill(desk().server(), SIGCONT); }

private:
    struct Running {
        desktop::ChildProcess* process;
        std::vector<xcb_window_t> windows;
    };
    struct Sides {
        double left = 0;
        double right = 0;
        double top = 0;
        double bottom = 0;
    };

    using WindowTest::idOf;
    [[nodiscard]] xcb_window_t idOf(const Program& program, std::size_t window) const {
        return running_.at(program.bundleID).windows.at(window);
    }

    [[nodiscard]] static std::vector<xcb_window_t> windowsOf(const std::string& bundleID) {
        auto windows = client().managedWindows();
        std::erase_if(windows, [&](xcb_window_t window) {
            return !client().text(window, "WM_CLASS").starts_with(bundleID + '\0');
        });
        return windows;
    }

    [[nodiscard]] static Sides decoration(xcb_window_t window) {
        const auto extents = client().items(window, "_NET_FRAME_EXTENTS");
        if (extents.size() < 4)
            return {};
        return {static_cast<double>(extents[0]), static_cast<double>(extents[1]),
                static_cast<double>(extents[2]), static_cast<double>(extents[3])};
    }

    xdg::QtRunLoop runLoop_;
    xdg::DesktopEntryCatalog catalog_{runLoop_, {}};
    x11::EwmhWindowList windowList_{connection, runLoop_};
    x11::StartupMessenger messenger_{connection};
    xdg::DesktopRunningApplications applications_{windowList_, messenger_, runLoop_, catalog_};
    std::map<std::string, Running> running_;
    bool isManaged_ = true;
    std::vector<std::uint32_t> supported_;

protected:
    x11::EwmhAccessibility port{connection, runLoop_, applications_, screens};
};

}
