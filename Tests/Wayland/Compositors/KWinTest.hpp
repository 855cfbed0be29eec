/// Base of the tests under a real KWin, which all tests of a suite share.
#pragma once

#include "ClientWindows/PlasmaWindowList.hpp"
#include "Linux/EventLoop.hpp"
#include "Wayland/Compositors/KWinDesktop.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>

#include <QSocketNotifier>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {

class KWinTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        test::testApplication();
        if (KWinDesktop::isInstalled())
            desk_.emplace();
    }
    static void TearDownTestSuite() { desk_.reset(); }
    void SetUp() override {
        if (!desk_)
            GTEST_SKIP() << "KWin is not installed";
        display_.reset(wl_display_connect(desk().display().c_str()));
        // Wakes the event loop up.
        events_.emplace(wl_display_get_fd(display_.get()), QSocketNotifier::Read);
        QObject::connect(&*events_, &QSocketNotifier::activated,
                         [this] { wl_display_roundtrip(display_.get()); });
        connection_.emplace(display_.get());
        list_ = PlasmaWindowList::create(*connection_, "org.example.ours");
        ASSERT_NE(list_, nullptr);
    }
    void TearDown() override {
        if (!desk_)
            return;
        desk().endPrograms();
        EXPECT_TRUE(eventually([this] { return list_->windows().empty(); }));
        list_.reset();
        connection_.reset();
        events_.reset();
        display_.reset();
    }

    static KWinDesktop& desk() { return *desk_; }

    /// Dispatches events until the condition holds.
    template <class Condition>
    [[nodiscard]] bool eventually(const Condition& condition) const {
        return test::waitUntil([&] {
            wl_display_roundtrip(display_.get());
            return condition();
        });
    }

    /// Starts a program with that ID, and waits for its windows.
    pid_t run(const std::string& appID, std::vector<std::string> options = {}) {
        const auto before = list_->windows().size();
        options.insert(options.end(), {"--class", appID});
        const pid_t process = desk().run(options).pid();
        EXPECT_TRUE(eventually([&] { return list_->windows().size() > before; }));
        return process;
    }
    [[nodiscard]] const xdg::ClientWindow& window(std::size_t index) const {
        return list_->windows().at(index);
    }
    /// What KWin itself says of the window.
    [[nodiscard]] KWinDesktop::Window actual(xdg::WindowID window) const {
        const auto details = list_->details(window);
        return desk().window(details ? details->uuid : "").value_or(KWinDesktop::Window{});
    }

    Proxy<wl_display> display_;
    std::optional<QSocketNotifier> events_;
    std::optional<WaylandConnection> connection_;
    std::unique_ptr<PlasmaWindowList> list_;

private:
    static inline std::optional<KWinDesktop> desk_;
};

}
