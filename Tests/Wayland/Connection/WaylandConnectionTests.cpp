#include "Connection/LayerShell.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Wayland/Fakes/FakeCompositor.hpp"

#include <gtest/gtest.h>
#include <xdg-shell-client-protocol.h>

namespace vireline::wayland {
namespace {

TEST(WaylandConnection, KnowsWhatTheCompositorOffers) {
    FakeCompositor compositor;
    compositor.offer(xdg_wm_base_interface, 2);
    const auto display = compositor.connect();

    const WaylandConnection connection{display.get()};

    EXPECT_EQ(connection.offered("xdg_wm_base"), 2U);
    EXPECT_EQ(connection.offered("zwlr_layer_shell_v1"), 0U);
}

TEST(WaylandConnection, BindsTheNewestVersionThatBothSidesKnow) {
    FakeCompositor compositor;
    compositor.offer(xdg_wm_base_interface, 2);
    compositor.offer(zwlr_layer_shell_v1_interface, 4);
    const auto display = compositor.connect();
    const WaylandConnection connection{display.get()};

    const auto base = connection.bind<xdg_wm_base>(xdg_wm_base_interface, 3);
    const auto shell = connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, 3);
    wl_display_roundtrip(display.get());

    EXPECT_EQ(compositor.boundVersion(xdg_wm_base_interface), 2);
    EXPECT_EQ(compositor.boundVersion(zwlr_layer_shell_v1_interface), 3);
}

TEST(WaylandConnection, BindsNothingThatIsNotOffered) {
    FakeCompositor compositor;
    const auto display = compositor.connect();
    const WaylandConnection connection{display.get()};

    EXPECT_EQ(connection.bind<xdg_wm_base>(xdg_wm_base_interface, 3), nullptr);
}

TEST(WaylandConnection, NoticesGlobalsThatComeAndGo) {
    FakeCompositor compositor;
    const auto display = compositor.connect();
    WaylandConnection connection{display.get()};
    int changes = 0;
    const auto watch = connection.observe([&] { ++changes; });

    compositor.offer(xdg_wm_base_interface, 2);
    wl_display_roundtrip(display.get());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(connection.offered("xdg_wm_base"), 2U);

    compositor.withdraw(xdg_wm_base_interface);
    wl_display_roundtrip(display.get());
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(connection.offered("xdg_wm_base"), 0U);
}

TEST(WaylandConnection, HasNothingOnceTheCompositorHasDied) {
    FakeCompositor compositor;
    compositor.offer(xdg_wm_base_interface, 2);
    const auto display = compositor.connect();
    compositor.die();

    const WaylandConnection connection{display.get()};

    EXPECT_EQ(connection.offered("xdg_wm_base"), 0U);
}

}
}
