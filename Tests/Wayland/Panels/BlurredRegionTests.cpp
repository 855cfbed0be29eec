#include "Connection/WaylandConnection.hpp"
#include "Panels/Picture/BlurredRegion.hpp"
#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/RequestLog.hpp"

#include <blur-client-protocol.h>
#include <gtest/gtest.h>
#include <wayland-client.h>

#include <optional>
#include <utility>

namespace vireline::wayland {
namespace {

using Requests = RequestLog::Requests;

class BlurredRegionTest : public testing::Test {
protected:
    void SetUp() override {
        const auto note = [this](wl_resource* object) { log_.watch(object); };
        server_.offer(wl_compositor_interface, 1, note);
        server_.offer(org_kde_kwin_blur_manager_interface, 1, note);
        display_ = server_.connect();
        connection_.emplace(display_.get());
        compositor_ = connection_->bind<wl_compositor>(wl_compositor_interface, 1);
        manager_ =
            connection_->bind<org_kde_kwin_blur_manager>(org_kde_kwin_blur_manager_interface, 1);
        surface_.reset(wl_compositor_create_surface(compositor_.get()));
        (void)requested();
    }
    /// The requests since the previous call.
    Requests requested() {
        wl_display_roundtrip(display_.get());
        return log_.take();
    }
    void set(const QRegion& region) { blurred_->set(*manager_, *compositor_, *surface_, region); }

    FakeCompositor server_;
    RequestLog log_{server_};
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    Proxy<wl_compositor> compositor_;
    Proxy<org_kde_kwin_blur_manager> manager_;
    Proxy<wl_surface> surface_;
    std::optional<BlurredRegion> blurred_{std::in_place};
};

const Requests forTheStrip{"org_kde_kwin_blur_manager create",
                           "wl_compositor create_region",
                           "wl_region add 8 20 200 1",
                           "wl_region add 6 21 204 40",
                           "org_kde_kwin_blur set_region",
                           "org_kde_kwin_blur commit",
                           "wl_region destroy"};

TEST_F(BlurredRegionTest, IsRequestedInTheSurfacesCoordinates) {
    set(QRegion{8, 20, 200, 1} + QRegion{6, 21, 204, 40});

    EXPECT_EQ(requested(), forTheStrip);
}

TEST_F(BlurredRegionTest, IsRequestedAgainOnlyIfItChanges) {
    set({8, 20, 200, 1});
    (void)requested();

    set({8, 20, 200, 1});
    EXPECT_EQ(requested(), Requests{});

    set({8, 20, 210, 1});
    EXPECT_EQ(requested(), (Requests{"org_kde_kwin_blur_manager create",
                                     "org_kde_kwin_blur release", "wl_compositor create_region",
                                     "wl_region add 8 20 210 1", "org_kde_kwin_blur set_region",
                                     "org_kde_kwin_blur commit", "wl_region destroy"}));
}

TEST_F(BlurredRegionTest, IsRequestedAgainOnceTheEffectIsBack) {
    set(QRegion{8, 20, 200, 1} + QRegion{6, 21, 204, 40});
    (void)requested();

    blurred_->clear();
    EXPECT_EQ(requested(), Requests{"org_kde_kwin_blur release"});

    set(QRegion{8, 20, 200, 1} + QRegion{6, 21, 204, 40});
    EXPECT_EQ(requested(), forTheStrip);
}

TEST_F(BlurredRegionTest, GoesWithItsSurface) {
    set({8, 20, 200, 1});
    (void)requested();

    blurred_.reset();

    EXPECT_EQ(requested(), Requests{"org_kde_kwin_blur release"});
}

}
}
