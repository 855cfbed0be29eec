#include "Displays/ReservedSpace.hpp"

#include "Connection/LayerShell.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Displays/EdgeProbe.hpp"

#include <algorithm>

namespace vireline::wayland {
namespace {

constexpr std::uint32_t allEdges =
    ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;

bool findsSome(const std::unique_ptr<EdgeProbe>& probe) {
    return probe && probe->isReserved();
}

}

struct ReservedSpace::Events {
    static void configure(void* data, zwlr_layer_surface_v1* role, std::uint32_t serial,
                          std::uint32_t width, std::uint32_t height) {
        zwlr_layer_surface_v1_ack_configure(role, serial);
        static_cast<ReservedSpace*>(data)->measured(
            {static_cast<int>(width), static_cast<int>(height)});
    }
    static void closed(void* /*data*/, zwlr_layer_surface_v1* /*role*/) {}

    static constexpr zwlr_layer_surface_v1_listener listener{.configure = configure,
                                                             .closed = closed};
};

/// The surface never gets any content, so the compositor shows nothing, but keeps it informed.
ReservedSpace::ReservedSpace(const WaylandConnection& connection, wl_output* output)
    : connection_(connection)
    , output_(output)
    , shell_(connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, layerShellVersion))
    , compositor_(connection.bind<wl_compositor>(wl_compositor_interface, 1)) {
    if (!shell_ || !compositor_)
        return;
    surface_.reset(wl_compositor_create_surface(compositor_.get()));
    role_.reset(zwlr_layer_shell_v1_get_layer_surface(shell_.get(), surface_.get(), output,
                                                      ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND,
                                                      "vireline-probe"));
    zwlr_layer_surface_v1_add_listener(role_.get(), &Events::listener, this);
    zwlr_layer_surface_v1_set_anchor(role_.get(), allEdges);
    zwlr_layer_surface_v1_set_size(role_.get(), 0, 0);
    wl_surface_commit(surface_.get());
    connection.flush();
}

ReservedSpace::~ReservedSpace() = default;

/// The edges matter only if the free area is smaller than the display. Whether it is depends on
/// the display's size too, which may arrive later, so the probes are made for any answer.
void ReservedSpace::measured(QSize free) {
    if (free == free_)
        return;
    free_ = free;
    const auto probe = [this](DockPosition edge) {
        return std::make_unique<EdgeProbe>(connection_, output_, edge, [this] { onChange(); });
    };
    if (!bottom_) {
        bottom_ = probe(DockPosition::bottom);
        left_ = probe(DockPosition::left);
        right_ = probe(DockPosition::right);
    }
    onChange();
}

Insets ReservedSpace::insets(QSize whole) const {
    if (free_.isEmpty())
        return {};
    const int across = std::max(0, whole.width() - free_.width());
    const int down = std::max(0, whole.height() - free_.height());
    Insets insets;
    if (down > 0)
        (findsSome(bottom_) ? insets.bottom : insets.top) = down;
    if (across > 0 && findsSome(left_)) {
        insets.left = across;
    } else if (across > 0 && findsSome(right_)) {
        insets.right = across;
    }
    return insets;
}

}
