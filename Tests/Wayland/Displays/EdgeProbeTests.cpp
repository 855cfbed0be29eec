#include "Connection/WaylandConnection.hpp"
#include "Displays/EdgeProbe.hpp"
#include "Wayland/Fakes/FakeShell.hpp"
#include "Wayland/Fakes/FirstOutput.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vireline::wayland {
namespace {

using Requests = RequestLog::Requests;

/// Events are dispatched by `sync` only.
class EdgeProbeTest : public testing::Test {
protected:
    void open(DockPosition edge = DockPosition::bottom) {
        display_ = compositor_.connect();
        connection_.emplace(display_.get());
        output_ = firstOutput(display_.get());
        probe_.emplace(*connection_, output_.get(), edge, [this] { ++changes_; });
        sync();
    }
    void close() {
        probe_.reset();
        output_.reset();
        connection_.reset();
        display_.reset();
    }
    /// Twice, since the surface gets its content once its role is configured.
    void sync() const {
        wl_display_roundtrip(display_.get());
        wl_display_roundtrip(display_.get());
    }
    [[nodiscard]] bool isRequested(const std::string& request) const {
        return std::ranges::count(opening_, request) > 0;
    }

    FakeCompositor compositor_;
    FakeShell shell_{compositor_};
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    OwnedOutput output_;
    std::optional<EdgeProbe> probe_;
    int changes_ = 0;
    Requests opening_;
};

TEST_F(EdgeProbeTest, IsOnePixelBeyondItsEdge) {
    for (const auto& [edge, anchor] :
         {std::pair{DockPosition::bottom, 2}, std::pair{DockPosition::left, 4},
          std::pair{DockPosition::right, 8}}) {
        close();
        open(edge);
        opening_ = shell_.requests();
        EXPECT_TRUE(isRequested("zwlr_layer_surface_v1 set_anchor " + std::to_string(anchor)));
        EXPECT_TRUE(isRequested("zwlr_layer_surface_v1 set_size 1 1"));
        EXPECT_TRUE(isRequested("zwlr_layer_surface_v1 set_margin 0 -1 -1 -1"));
    }
}

/// What something opaque covers is on no display for some compositors.
TEST_F(EdgeProbeTest, IsAboveThePanelThatItIsToFind) {
    open();
    const auto requests = shell_.requests();
    const auto role = std::ranges::find_if(requests, [](const auto& each) {
        return each.starts_with("zwlr_layer_shell_v1 get_layer_surface");
    });
    ASSERT_NE(role, requests.end());
    constexpr std::string_view overlay = " 3";
    EXPECT_TRUE(role->ends_with(overlay)) << *role;
}

TEST_F(EdgeProbeTest, TakesNoInput) {
    open();
    opening_ = shell_.requests();

    EXPECT_TRUE(isRequested("wl_surface set_input_region"));
    EXPECT_EQ(std::ranges::count_if(
                  opening_, [](const auto& each) { return each.starts_with("wl_region add"); }),
              0)
        << "the region is empty";
}

TEST_F(EdgeProbeTest, HasNoContentBeforeItsRoleIsConfigured) {
    shell_.setConfigures(false);
    open();
    EXPECT_EQ(shell_.withContent(), 0);

    shell_.configure();
    sync();
    EXPECT_EQ(shell_.withContent(), 1);
    EXPECT_EQ(shell_.takeViolations(), std::vector<std::string>{});
}

TEST_F(EdgeProbeTest, FindsSomethingReservedWhileItIsOnTheDisplay) {
    open();
    EXPECT_FALSE(probe_->isReserved());
    EXPECT_EQ(changes_, 0);

    shell_.enterOutput();
    sync();
    EXPECT_TRUE(probe_->isReserved());
    EXPECT_EQ(changes_, 1);

    shell_.leaveOutput();
    sync();
    EXPECT_FALSE(probe_->isReserved());
    EXPECT_EQ(changes_, 2);
}

TEST_F(EdgeProbeTest, ReportsOnlyChanges) {
    open();

    shell_.leaveOutput();
    sync();
    EXPECT_EQ(changes_, 0);

    shell_.enterOutput();
    shell_.enterOutput();
    sync();
    EXPECT_EQ(changes_, 1);
}

/// Beyond the edge of a display, there may be another one.
TEST_F(EdgeProbeTest, FindsNothingOnAnotherDisplay) {
    open();
    const auto other = firstOutput(display_.get());
    sync();

    shell_.enterOtherOutput();
    sync();

    EXPECT_FALSE(probe_->isReserved());
    EXPECT_EQ(changes_, 0);
}

TEST_F(EdgeProbeTest, OutlivesItsDisplay) {
    open();
    shell_.enterOutput();
    sync();

    shell_.unplug();
    shell_.closeLayers();
    sync();
    EXPECT_EQ(changes_, 1);

    probe_.reset();
    sync();
    EXPECT_EQ(shell_.count("zwlr_layer_surface_v1"), 0);
    EXPECT_EQ(shell_.takeViolations(), std::vector<std::string>{});
}

TEST_F(EdgeProbeTest, IsNotConfusedByAnEventOfADisplayThatIsGone) {
    open();
    shell_.enterOutput();
    // The event is on its way when the client destroys the object, so it arrives without it.
    output_.reset();
    sync();

    EXPECT_FALSE(probe_->isReserved());
}

TEST(EdgeProbe, FindsNothingWithoutTheLayerShell) {
    FakeCompositor compositor;
    compositor.offer(wl_output_interface, 3);
    const auto display = compositor.connect();
    const WaylandConnection connection{display.get()};
    const auto output = firstOutput(display.get());

    const EdgeProbe probe{connection, output.get(), DockPosition::left, [] {}};
    wl_display_roundtrip(display.get());

    EXPECT_FALSE(probe.isReserved());
}

}
}
