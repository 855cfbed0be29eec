#include "Connection/WaylandConnection.hpp"
#include "FakeCompositor.hpp"
#include "Panels/BlurredRegion.hpp"

#include <blur-client-protocol.h>
#include <gtest/gtest.h>
#include <wayland-client.h>
#include <wayland-server-core.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vireline::wayland {
namespace {

using Requests = std::vector<std::string>;

/// Notes what is requested of the blur, of regions and of surfaces, in order, and makes the objects
/// that are asked for.
int noteRequest(const void* /*implementation*/, void* target, std::uint32_t /*opcode*/,
                const wl_message* message, wl_argument* arguments) {
    auto* const object = static_cast<wl_resource*>(target);
    auto& requests = *static_cast<Requests*>(wl_resource_get_user_data(object));
    const std::string_view name{message->name};
    std::string request{wl_resource_get_class(object)};
    request += '.' + std::string{name};
    std::string_view signature{message->signature};
    while (!signature.empty() && signature.front() >= '0' && signature.front() <= '9')
        signature.remove_prefix(1);
    for (std::size_t i = 0; i < signature.size(); ++i) {
        if (signature[i] == 'i')
            request += ' ' + std::to_string(arguments[i].i);
        if (signature[i] != 'n')
            continue;
        wl_resource* const made = wl_resource_create(wl_resource_get_client(object),
                                                     message->types[i], 1, arguments[i].n);
        wl_resource_set_dispatcher(made, noteRequest, nullptr, &requests, nullptr);
    }
    requests.push_back(request);
    if (name == "destroy" || name == "release")
        wl_resource_destroy(object);
    return 0;
}

class BlurredRegionTest : public testing::Test {
protected:
    void SetUp() override {
        const auto note = [this](wl_resource* object) {
            wl_resource_set_dispatcher(object, noteRequest, nullptr, &requests_, nullptr);
        };
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
    /// Since the last time.
    Requests requested() {
        wl_display_roundtrip(display_.get());
        Requests requests;
        server_.run([&] { requests = std::exchange(requests_, {}); });
        return requests;
    }
    void set(const QRegion& region) { blurred_->set(*manager_, *compositor_, *surface_, region); }

    FakeCompositor server_;
    Requests requests_;
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    Proxy<wl_compositor> compositor_;
    Proxy<org_kde_kwin_blur_manager> manager_;
    Proxy<wl_surface> surface_;
    std::optional<BlurredRegion> blurred_{std::in_place};
};

const Requests forTheStrip{"org_kde_kwin_blur_manager.create",
                           "wl_compositor.create_region",
                           "wl_region.add 8 20 200 1",
                           "wl_region.add 6 21 204 40",
                           "org_kde_kwin_blur.set_region",
                           "org_kde_kwin_blur.commit",
                           "wl_region.destroy"};

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
    EXPECT_EQ(requested(), (Requests{"org_kde_kwin_blur_manager.create",
                                     "org_kde_kwin_blur.release", "wl_compositor.create_region",
                                     "wl_region.add 8 20 210 1", "org_kde_kwin_blur.set_region",
                                     "org_kde_kwin_blur.commit", "wl_region.destroy"}));
}

TEST_F(BlurredRegionTest, IsRequestedAgainOnceTheEffectIsBack) {
    set(QRegion{8, 20, 200, 1} + QRegion{6, 21, 204, 40});
    (void)requested();

    blurred_->clear();
    EXPECT_EQ(requested(), Requests{"org_kde_kwin_blur.release"});

    set(QRegion{8, 20, 200, 1} + QRegion{6, 21, 204, 40});
    EXPECT_EQ(requested(), forTheStrip);
}

TEST_F(BlurredRegionTest, GoesWithItsSurface) {
    set({8, 20, 200, 1});
    (void)requested();

    blurred_.reset();

    EXPECT_EQ(requested(), Requests{"org_kde_kwin_blur.release"});
}

}
}
