#include "WaylandPanels/ShellTest.hpp"

#include "App/WaylandSession.hpp"
#include "Connection/QtNative.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <wayland-client.h>

#include <QApplication>
#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace vireline::wayland {
namespace {

/// The fake compositor and Qt's application object on it.
struct QtOnFakeShell {
    QtOnFakeShell() {
        shell.leaveFirstClientWithoutFrames();
        // Qt connects to this instead of WAYLAND_DISPLAY.
        setenv("WAYLAND_SOCKET", std::to_string(compositor.makeSocket()).c_str(), 1);
        setenv("QT_WAYLAND_DISABLE_HW_INTEGRATION", "1", 1);
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
        unsetenv("QT_QPA_PLATFORMTHEME");
        unsetenv("XDG_CURRENT_DESKTOP");
        application.emplace(count, arguments.data());
        own.emplace(compositor.connect());
    }

    FakeCompositor compositor;
    FakeShell shell{compositor};
    WaylandSession session;
    std::array<char, 20> name{"WaylandPanelTests"};
    std::array<char, 10> option{"-platform"};
    std::array<char, 8> platform{"wayland"};
    std::array<char*, 4> arguments{name.data(), option.data(), platform.data(), nullptr};
    int count = 3;
    std::optional<QApplication> application;
    std::optional<OwnConnection> own;
};

/// Never destroyed: Qt's plugin does not free everything, so the leak checker would complain.
QtOnFakeShell& fake() {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory)
    static auto& instance = *new QtOnFakeShell;
    return instance;
}

}

FakeCompositor& ShellTest::compositor() {
    return fake().compositor;
}

FakeShell& ShellTest::shell() {
    return fake().shell;
}

void ShellTest::SetUp() {
    (void)fake();
    connection_.emplace(QtNative::display());
    appearance_.emplace("");
    screens_.emplace(*connection_, "");
    seat_.emplace(*fake().own);
    context_.emplace(
        DockContext::Needs{*connection_, *fake().own, *seat_, *screens_, *appearance_});
    settle();
    (void)shell().requests();
}

void ShellTest::TearDown() {
    context_.reset();
    seat_.reset();
    screens_.reset();
    appearance_.reset();
    connection_.reset();
    settle();
    EXPECT_EQ(shell().count("zwlr_layer_surface_v1"), 0);
    EXPECT_EQ(shell().count("xdg_popup"), 0);
    EXPECT_EQ(shell().takeViolations(), Requests{});
}

const Output& ShellTest::output() {
    const Output* const found = context().outputs.named("FAKE-1");
    if (found == nullptr)
        throw std::runtime_error{"no output"};
    return *found;
}

bool ShellTest::eventually(const std::function<bool()>& condition) {
    return desktop::eventually([&] {
        settle();
        return condition();
    });
}

/// Events may lead to requests, whose answers are then on their way.
void ShellTest::settle() {
    constexpr int rounds = 3;
    for (int i = 0; i < rounds; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        wl_display_roundtrip(QtNative::display());
        wl_display_roundtrip(fake().own->globals().display());
        QCoreApplication::processEvents();
    }
}

}
