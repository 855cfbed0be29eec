/// The surface of a dock, and the scale of its picture.
#include "Panels/LayerPanelWindow.hpp"
#include "Panels/Surfaces/DockSurface.hpp"
#include "Wayland/Fakes/RequestLog.hpp"
#include "WaylandPanels/ShellTest.hpp"
#include "WaylandPanels/SilentWindow.hpp"

#include <fractional-scale-v1-client-protocol.h>
#include <viewporter-client-protocol.h>
#include <wayland-server-core.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace vireline::wayland {
namespace {

/// A dock of 200 x 60 points.
class ScaledDock : public ShellTest {
protected:
    void TearDown() override {
        dock_.reset();
        shell().setScale(1);
        ShellTest::TearDown();
    }
    void showDock() {
        dock_ = std::make_unique<LayerPanelWindow>(context(),
                                                   screens().screens().front().number.value_or(0),
                                                   Rect{300, 0, 200, 60}, listener_);
        dock_->orderFrontRegardless();
    }
    [[nodiscard]] static bool hasContent(int width, int height, int scale) {
        return eventually([&] {
            const auto content = shell().latestContent();
            return content.width == width && content.height == height &&
                   content.bufferScale == scale;
        });
    }

    SilentWindow listener_;
    std::unique_ptr<LayerPanelWindow> dock_;
};

TEST_F(ScaledDock, HasThePixelsOfItsDisplay) {
    shell().setScale(2);
    settle();
    showDock();

    EXPECT_TRUE(hasContent(400, 120, 2));
}

/// A buffer scale without a fitting buffer would show the dock in half its size for a moment.
TEST_F(ScaledDock, ChangesItsBufferScaleOnlyWithABufferOfThatSize) {
    showDock();
    ASSERT_TRUE(hasContent(200, 60, 1));
    (void)shell().requests();

    shell().setScale(3);
    ASSERT_TRUE(hasContent(600, 180, 3));

    const Requests requests = shell().requests("wl_surface");
    const auto scale = std::ranges::find(requests, "wl_surface set_buffer_scale 3");
    ASSERT_NE(scale, requests.end());
    const auto commit = std::find(scale, requests.end(), "wl_surface commit");
    const auto attach = std::find(scale, requests.end(), "wl_surface attach 0 0");
    EXPECT_LT(attach, commit);
}

/// Also tells the dock its preferred scale.
class FractionalDock : public ScaledDock {
protected:
    void SetUp() override {
        log_.emplace(compositor());
        log_->onRequest = [this](const RequestLog::Request& request) {
            if (request.name == "get_fractional_scale")
                scale_ = request.created;
        };
        const auto watch = [this](wl_resource* bound) { log_->watch(bound); };
        compositor().offer(wp_viewporter_interface, 1, watch);
        compositor().offer(wp_fractional_scale_manager_v1_interface, 1, watch);
        settle();
        ScaledDock::SetUp();
    }
    void TearDown() override {
        ScaledDock::TearDown();
        compositor().withdraw(wp_viewporter_interface);
        compositor().withdraw(wp_fractional_scale_manager_v1_interface);
        settle();
        log_.reset();
    }
    /// In the protocol's unit, 120th parts.
    void prefer(std::uint32_t parts) {
        compositor().send([&] {
            constexpr std::uint32_t preferredScale = 0;
            wl_resource_post_event(scale_, preferredScale, parts);
        });
    }
    /// The requests to viewports since the previous call.
    [[nodiscard]] Requests viewports() {
        Requests all = log_->take();
        std::erase_if(all, [](const auto& each) { return !each.starts_with("wp_viewport set_"); });
        return all;
    }

    std::optional<RequestLog> log_;
    wl_resource* scale_ = nullptr;
};

TEST_F(FractionalDock, HasOneAndAHalfPixelsPerPoint) {
    showDock();
    ASSERT_TRUE(hasContent(200, 60, 1));
    EXPECT_EQ(viewports(), Requests{"wp_viewport set_destination 200 60"});

    prefer(180);

    EXPECT_TRUE(hasContent(300, 90, 1));
    EXPECT_EQ(shell().requests("wl_surface set_buffer_scale"), Requests{});
}

TEST_F(FractionalDock, KeepsItsSizeInPointsWhenItGrows) {
    showDock();
    ASSERT_TRUE(hasContent(200, 60, 1));
    prefer(180);
    ASSERT_TRUE(hasContent(300, 90, 1));
    (void)viewports();

    dock_->setFrame({300, 0, 300, 60}, false);
    dock_->setHostedFrame({0, 0, 300, 60});

    EXPECT_TRUE(hasContent(450, 90, 1));
    EXPECT_EQ(viewports(), Requests{"wp_viewport set_destination 300 60"});
}

TEST_F(FractionalDock, IgnoresTheRoundedScaleOfItsDisplay) {
    showDock();
    ASSERT_TRUE(hasContent(200, 60, 1));
    prefer(180);
    ASSERT_TRUE(hasContent(300, 90, 1));

    shell().setScale(2);
    settle();
    dock_->present({});
    settle();

    EXPECT_TRUE(hasContent(300, 90, 1));
}

TEST_F(FractionalDock, IgnoresAScaleOfZero) {
    showDock();
    ASSERT_TRUE(hasContent(200, 60, 1));

    prefer(0);
    settle();

    EXPECT_TRUE(hasContent(200, 60, 1));
}

/// A surface with a buffer of its own. Frames are announced by the test.
class DockSurfaceTest : public ShellTest {
protected:
    void SetUp() override {
        ShellTest::SetUp();
        surface_.emplace(context(), output(), QRect{10, 20, 100, 50}, input_,
                         DockSurface::Events{[this] { ++configured_; }, [this] { ++closed_; },
                                             [this] { ++frames_; }});
        ASSERT_TRUE(eventually([this] { return configured_ == 1; }));
        buffer_ = SharedImage::make(*context().memory, {100, 50});
        shell().setAnnouncesFrames(false);
        (void)shell().requests();
    }
    void TearDown() override {
        surface_.reset();
        shell().setAnnouncesFrames(true);
        buffer_.reset();
        ShellTest::TearDown();
    }
    void show() {
        surface_->attach(*buffer_->buffer(), std::array{QRect{0, 0, 100, 50}});
        awaitFrame();
        settle();
    }
    void awaitFrame() {
        surface_->requestFrame();
        surface_->commit();
    }

    NoSurfaceInput input_;
    std::optional<DockSurface> surface_;
    std::unique_ptr<SharedImage> buffer_;
    int configured_ = 0;
    int closed_ = 0;
    int frames_ = 0;
};

TEST_F(DockSurfaceTest, IsToldOfTheFrameAfterAPicture) {
    show();
    EXPECT_EQ(shell().waitingFrames(), 1);
    EXPECT_TRUE(surface_->isFramePending());
    EXPECT_EQ(frames_, 0);

    shell().announceFrames();
    EXPECT_TRUE(eventually([&] { return frames_ == 1; }));
    EXPECT_FALSE(surface_->isFramePending());
}

TEST_F(DockSurfaceTest, AwaitsOneFrameAtATime) {
    show();
    show();
    awaitFrame();
    settle();
    EXPECT_EQ(shell().requests("wl_surface frame").size(), 1U);
    EXPECT_EQ(shell().waitingFrames(), 1);

    shell().announceFrames();
    EXPECT_TRUE(eventually([&] { return frames_ == 1; }));
    show();
    EXPECT_EQ(shell().waitingFrames(), 1);
}

TEST_F(DockSurfaceTest, AwaitsAFrameWithoutANewPicture) {
    awaitFrame();
    settle();

    EXPECT_EQ(shell().requests("wl_surface"), (Requests{"wl_surface damage_buffer 0 0 1 1",
                                                        "wl_surface frame", "wl_surface commit"}));
    shell().announceFrames();
    EXPECT_TRUE(eventually([&] { return frames_ == 1; }));
}

TEST_F(DockSurfaceTest, MayShowAPictureWhenAFrameIsDue) {
    surface_.emplace(context(), output(), QRect{10, 20, 100, 50}, input_,
                     DockSurface::Events{[this] { ++configured_; }, [] {},
                                         [this] {
                                             if (++frames_ == 1)
                                                 awaitFrame();
                                         }});
    ASSERT_TRUE(eventually([this] { return configured_ == 2; }));
    show();

    shell().announceFrames();
    ASSERT_TRUE(eventually([&] { return frames_ == 1; }));
    settle();
    EXPECT_EQ(shell().waitingFrames(), 1);
    shell().announceFrames();
    EXPECT_TRUE(eventually([&] { return frames_ == 2; }));
}

TEST_F(DockSurfaceTest, IsGoneBeforeItsFrame) {
    show();
    surface_.reset();

    shell().announceFrames();
    settle();
    EXPECT_EQ(frames_, 0);
}

TEST_F(DockSurfaceTest, IsClosedWithItsDisplay) {
    shell().closeLayers();
    EXPECT_TRUE(eventually([&] { return closed_ == 1; }));
    EXPECT_EQ(configured_, 1);
}

TEST_F(DockSurfaceTest, IsConfiguredAgainInANewScale) {
    shell().setScale(2);
    settle();
    surface_->follow(output());
    EXPECT_EQ(surface_->scale(), 2);
    EXPECT_EQ(configured_, 2);

    surface_->follow(output());
    EXPECT_EQ(configured_, 2);
    shell().setScale(1);
}

}
}
