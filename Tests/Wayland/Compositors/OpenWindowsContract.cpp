/// How the ports for sway and KWin list an app's windows and bring them forward.
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/DesktopRunningApplications.hpp"
#include "Compositors/CompositorAccessibility.hpp"
#include "Compositors/Sway/SwayWindowList.hpp"
#include "Contract/OpenWindows.hpp"
#include "Support/TemporaryFolder.hpp"
#include "Toolkit/QtRunLoop.hpp"
#include "Wayland/Compositors/KWinTest.hpp"
#include "Wayland/Compositors/SwayTest.hpp"
#include "Wayland/Fakes/SilentNotices.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace vireline {
namespace {

using contract::Program;

class OnSway : public wayland::SwayTest {
protected:
    void SetUp() override {
        list_ = wayland::SwayWindowList::open(desk().socket(), getpid());
        ASSERT_NE(list_, nullptr);
    }
    void TearDown() override {
        list_.reset();
        SwayTest::TearDown();
    }
    template <class Condition>
    [[nodiscard]] static bool eventually(const Condition& condition) {
        return test::waitUntil(condition);
    }

    std::unique_ptr<wayland::SwayWindowList> list_;
};

using OnKWin = wayland::KWinTest;

/// Programs whose windows can be arranged one by one.
template <class Compositor>
class WaylandDesktop : public Compositor {
protected:
    void SetUp() override {
        Compositor::SetUp();
        if (!this->list_)
            return;
        apps_.emplace(*this->list_, notices_, runLoop_, catalog_);
        port_.emplace(nullptr, *apps_, [] { return Point{}; });
    }
    void TearDown() override {
        port_.reset();
        apps_.reset();
        Compositor::TearDown();
    }

    [[nodiscard]] Accessibility& accessibility() { return *port_; }

    /// At first, the windows' titles are their numbers, by which they are recognised.
    Program run(std::size_t windows) {
        const std::string bundleID = "org.example.program" + std::to_string(running_.size() + 1);
        Running& program = running_[bundleID];
        for (std::size_t i = 0; i < windows; ++i)
            program.titles.push_back(std::to_string(i));
        writeTitles(bundleID);
        const auto process = this->desk()
                                 .run({"--class", bundleID, "--windows", std::to_string(windows),
                                       "--titles", fileOf(bundleID)})
                                 .pid();
        for (const std::string& title : program.titles) {
            EXPECT_TRUE(
                this->eventually([&] { return windowTitled(bundleID, title).has_value(); }));
            program.windows.push_back(windowTitled(bundleID, title).value_or(xdg::WindowID::none));
        }
        // Each takes the focus when it opens, which would undo what a test does before that.
        EXPECT_TRUE(this->eventually(
            [&] { return this->list_->activeWindow() == program.windows.back(); }));
        return {bundleID, process};
    }

    void setTitle(const Program& program, std::size_t window, const std::string& title) {
        running_.at(program.bundleID).titles.at(window) = title;
        writeTitles(program.bundleID);
        EXPECT_TRUE(
            this->eventually([&] { return windowTitled(program.bundleID, title).has_value(); }));
    }
    void activate(const Program& program, std::size_t window) {
        const auto id = idOf(program, window);
        this->list_->activate(id);
        this->list_->flush();
        EXPECT_TRUE(this->eventually([&] { return this->list_->activeWindow() == id; }));
    }
    void hide(const Program& program, std::size_t window) {
        this->list_->iconify(idOf(program, window));
        this->list_->flush();
        EXPECT_TRUE(this->eventually([&] { return !isShown(program, window); }));
    }
    [[nodiscard]] bool isShown(const Program& program, std::size_t window) {
        const auto& all = this->list_->windows();
        const auto found = std::ranges::find(all, idOf(program, window), &xdg::ClientWindow::id);
        return found != all.end() && !found->isHidden;
    }
    void close(const Program& program, std::size_t window) {
        this->list_->close(idOf(program, window));
        this->list_->flush();
        auto& windows = running_.at(program.bundleID).windows;
        windows.erase(windows.begin() + static_cast<std::ptrdiff_t>(window));
    }

private:
    struct Running {
        std::vector<xdg::WindowID> windows;
        std::vector<std::string> titles;
    };

    [[nodiscard]] xdg::WindowID idOf(const Program& program, std::size_t window) const {
        return running_.at(program.bundleID).windows.at(window);
    }
    [[nodiscard]] std::string fileOf(const std::string& bundleID) const {
        return (folder_.path() / bundleID).string();
    }
    void writeTitles(const std::string& bundleID) const {
        std::string lines;
        for (const std::string& title : running_.at(bundleID).titles)
            lines += title + '\n';
        std::ofstream{fileOf(bundleID)} << lines;
    }
    [[nodiscard]] std::optional<xdg::WindowID> windowTitled(const std::string& bundleID,
                                                            const std::string& title) const {
        for (const xdg::ClientWindow& window : apps_->windows(bundleID)) {
            if (this->list_->titles(std::array{window.id}).at(0) == title)
                return window.id;
        }
        return std::nullopt;
    }

    test::TemporaryFolder folder_;
    xdg::QtRunLoop runLoop_;
    xdg::DesktopEntryCatalog catalog_{runLoop_, {}};
    wayland::SilentNotices notices_;
    std::optional<xdg::DesktopRunningApplications> apps_;
    std::optional<wayland::CompositorAccessibility> port_;
    std::map<std::string, Running> running_;
};

struct WaylandNames {
    template <class Desktop>
    static std::string GetName(int /*index*/) {
        return std::is_same_v<Desktop, WaylandDesktop<OnSway>> ? "Sway" : "KWin";
    }
};

}

using WaylandDesktops = testing::Types<WaylandDesktop<OnSway>, WaylandDesktop<OnKWin>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Wayland, OpenWindowsContract, WaylandDesktops, WaylandNames);

}
