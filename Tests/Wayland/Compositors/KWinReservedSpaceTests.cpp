/// The space that panels reserve, measured under a real KWin.
#include "Connection/LayerShell.hpp"
#include "Displays/ReservedSpace.hpp"
#include "Files/FileDescriptor.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "Wayland/Compositors/KWinTest.hpp"
#include "Wayland/Fakes/FirstOutput.hpp"

#include <sys/mman.h>
#include <unistd.h>

namespace vireline::wayland {
namespace {

/// Another program's panel at an edge of the first output.
class Panel {
public:
    Panel(const std::string& compositor, std::uint32_t edge, int thickness)
        : display_(wl_display_connect(compositor.c_str()))
        , connection_(display_.get())
        , output_(firstOutput(display_.get()))
        , compositor_(connection_.bind<wl_compositor>(wl_compositor_interface, 1))
        , shell_(connection_.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, 3))
        , surface_(wl_compositor_create_surface(compositor_.get()))
        , role_(zwlr_layer_shell_v1_get_layer_surface(shell_.get(), surface_.get(), output_.get(),
                                                      ZWLR_LAYER_SHELL_V1_LAYER_TOP, "dock")) {
        static constexpr zwlr_layer_surface_v1_listener listener{.configure = acknowledge,
                                                                 .closed = ignore};
        zwlr_layer_surface_v1_add_listener(role_.get(), &listener, this);
        zwlr_layer_surface_v1_set_anchor(role_.get(), edge);
        zwlr_layer_surface_v1_set_size(role_.get(), side, side);
        zwlr_layer_surface_v1_set_exclusive_zone(role_.get(), thickness);
        wl_surface_commit(surface_.get());
        // KWin may configure it some time after the commit, and content before that is an error.
        EXPECT_TRUE(desktop::eventually([this] {
            wl_display_roundtrip(display_.get());
            return isConfigured_;
        }));
        draw();
    }

private:
    static constexpr int side = 16;

    static void acknowledge(void* data, zwlr_layer_surface_v1* role, std::uint32_t serial,
                            std::uint32_t /*width*/, std::uint32_t /*height*/) {
        zwlr_layer_surface_v1_ack_configure(role, serial);
        static_cast<Panel*>(data)->isConfigured_ = true;
    }
    static void ignore(void* /*data*/, zwlr_layer_surface_v1* /*role*/) {}

    void draw() {
        constexpr int stride = 4 * side;
        const auto memory = connection_.bind<wl_shm>(wl_shm_interface, 1);
        const xdg::FileDescriptor file{memfd_create("panel", MFD_CLOEXEC)};
        EXPECT_EQ(ftruncate(file.get(), stride * side), 0);
        wl_shm_pool* const pool = wl_shm_create_pool(memory.get(), file.get(), stride * side);
        pixels_.reset(
            wl_shm_pool_create_buffer(pool, 0, side, side, stride, WL_SHM_FORMAT_ARGB8888));
        wl_shm_pool_destroy(pool);
        wl_surface_attach(surface_.get(), pixels_.get(), 0, 0);
        wl_surface_commit(surface_.get());
        wl_display_roundtrip(display_.get());
    }

    Proxy<wl_display> display_;
    WaylandConnection connection_;
    OwnedOutput output_;
    Proxy<wl_compositor> compositor_;
    Proxy<zwlr_layer_shell_v1> shell_;
    Proxy<wl_buffer> pixels_;
    Proxy<wl_surface> surface_;
    Proxy<zwlr_layer_surface_v1> role_;
    bool isConfigured_ = false;
};

class KWinReservedSpace : public KWinTest {
protected:
    [[nodiscard]] bool becomes(const ReservedSpace& space, const Insets& expected) const {
        return eventually([&] { return space.insets({1280, 720}) == expected; });
    }
};

TEST_F(KWinReservedSpace, IsFoundAtEachEdgeWhilePanelsComeAndGo) {
    const auto output = firstOutput(display_.get());
    ReservedSpace space{*connection_, output.get()};
    space.onChange = [] {};
    ASSERT_TRUE(eventually([&] { return space.free() == QSize{1280, 720}; }));

    const auto& display = desk().display();
    {
        const Panel panel{display, ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM, 70};
        EXPECT_TRUE(becomes(space, {.bottom = 70}));
    }
    {
        const Panel panel{display, ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT, 50};
        EXPECT_TRUE(becomes(space, {.left = 50}));
    }
    {
        const Panel panel{display, ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT, 40};
        EXPECT_TRUE(becomes(space, {.right = 40}));
    }
    {
        const Panel panel{display, ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP, 30};
        EXPECT_TRUE(becomes(space, {.top = 30}));
    }
    EXPECT_TRUE(becomes(space, {}));
}

}
}
