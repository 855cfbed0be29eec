/// A panel for tests under a Wayland compositor: a bar at an edge of an output that reserves its
/// thickness.
///
///     WaylandTestPanel OUTPUT bottom|left|right|top THICKNESS COLOUR [FORM FILE RECORD]
///
/// With the last three, it reserves nothing, and the file's content can be dragged out of it in
/// that form; see `WaylandDrag` for what it records. Runs until it is killed or the compositor
/// ends.
#include "Connection/LayerShell.hpp"
#include "WaylandDrag.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <list>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using vireline::desktop::WaylandDrag;

struct Options {
    std::string output;
    std::string edge;
    std::int32_t thickness = 0;
    std::uint32_t colour = 0;
    std::optional<WaylandDrag::Options> drag;
};

/// An output and its name.
struct Output {
    wl_output* object = nullptr;
    std::string name;
};

class Panel {
public:
    explicit Panel(Options options)
        : options_(std::move(options)), display_(wl_display_connect(nullptr)) {
        if (display_ == nullptr)
            throw std::runtime_error{"no compositor"};
        if (options_.drag)
            drag_.emplace(*display_, *options_.drag);
        wl_registry* const registry = wl_display_get_registry(display_);
        wl_registry_add_listener(registry, &globals, this);
        // The globals, and then the outputs' names.
        wl_display_roundtrip(display_);
        wl_display_roundtrip(display_);
        show();
    }

    void run() const {
        while (wl_display_dispatch(display_) >= 0) {
        }
    }

private:
    static void came(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                     std::uint32_t /*version*/) {
        auto& self = *static_cast<Panel*>(data);
        const auto bind = [&](const wl_interface& wanted, std::uint32_t version) {
            return wl_registry_bind(registry, name, &wanted, version);
        };
        const std::string_view offered = interface;
        if (self.drag_)
            self.drag_->offered(*registry, name, offered);
        if (offered == wl_compositor_interface.name) {
            self.compositor_ = static_cast<wl_compositor*>(bind(wl_compositor_interface, 1));
        } else if (offered == wl_shm_interface.name) {
            self.memory_ = static_cast<wl_shm*>(bind(wl_shm_interface, 1));
        } else if (offered == zwlr_layer_shell_v1_interface.name) {
            self.shell_ = static_cast<zwlr_layer_shell_v1*>(bind(zwlr_layer_shell_v1_interface, 1));
        } else if (offered == wl_output_interface.name) {
            auto& output = self.outputs_.emplace_back();
            output.object = static_cast<wl_output*>(bind(wl_output_interface, 4));
            wl_output_add_listener(output.object, &outputEvents, &output);
        }
    }
    static void went(void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*name*/) {}

    static void configured(void* data, zwlr_layer_surface_v1* role, std::uint32_t serial,
                           std::uint32_t width, std::uint32_t height) {
        zwlr_layer_surface_v1_ack_configure(role, serial);
        auto& self = *static_cast<Panel*>(data);
        self.paint(static_cast<std::int32_t>(width), static_cast<std::int32_t>(height));
        if (self.drag_)
            self.drag_->shown();
    }
    static void closed(void* /*data*/, zwlr_layer_surface_v1* /*role*/) {}

    void show() {
        const auto on = std::ranges::find(outputs_, options_.output, &Output::name);
        if (on == outputs_.end() || shell_ == nullptr)
            throw std::runtime_error{"no such output, or no layer shell"};
        surface_ = wl_compositor_create_surface(compositor_);
        auto* const role = zwlr_layer_shell_v1_get_layer_surface(
            shell_, surface_, on->object, ZWLR_LAYER_SHELL_V1_LAYER_TOP, "test-panel");
        zwlr_layer_surface_v1_add_listener(role, &roleEvents, this);
        constexpr std::uint32_t top = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP;
        constexpr std::uint32_t bottom = ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM;
        constexpr std::uint32_t left = ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT;
        constexpr std::uint32_t right = ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
        const bool lies = options_.edge == "bottom" || options_.edge == "top";
        const auto thickness = static_cast<std::uint32_t>(options_.thickness);
        std::uint32_t anchor = options_.edge == "left" ? left : right;
        if (lies)
            anchor = options_.edge == "top" ? top : bottom;
        zwlr_layer_surface_v1_set_anchor(role, anchor | (lies ? left | right : top | bottom));
        zwlr_layer_surface_v1_set_size(role, lies ? 0 : thickness, lies ? thickness : 0);
        if (drag_)
            drag_->beginOn(*surface_);
        else
            zwlr_layer_surface_v1_set_exclusive_zone(role, options_.thickness);
        wl_surface_commit(surface_);
    }

    void paint(std::int32_t width, std::int32_t height) const {
        const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        const auto bytes = static_cast<std::int32_t>(pixels * sizeof(std::uint32_t));
        const int file = memfd_create("panel", MFD_CLOEXEC);
        if (ftruncate(file, bytes) != 0)
            return;
        void* const memory = mmap(nullptr, static_cast<std::size_t>(bytes), PROT_READ | PROT_WRITE,
                                  MAP_SHARED, file, 0);
        if (memory == MAP_FAILED)
            return;
        std::ranges::fill(std::span{static_cast<std::uint32_t*>(memory), pixels}, options_.colour);
        wl_shm_pool* const pool = wl_shm_create_pool(memory_, file, bytes);
        wl_buffer* const buffer = wl_shm_pool_create_buffer(
            pool, 0, width, height, width * static_cast<std::int32_t>(sizeof(std::uint32_t)),
            WL_SHM_FORMAT_XRGB8888);
        wl_shm_pool_destroy(pool);
        close(file);
        wl_surface_attach(surface_, buffer, 0, 0);
        wl_surface_damage(surface_, 0, 0, width, height);
        wl_surface_commit(surface_);
    }

    static constexpr wl_registry_listener globals{.global = came, .global_remove = went};
    static constexpr zwlr_layer_surface_v1_listener roleEvents{.configure = configured,
                                                               .closed = closed};
    static constexpr wl_output_listener outputEvents{
        .geometry = [](void*, wl_output*, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                       std::int32_t, const char*, const char*, std::int32_t) {},
        .mode = [](void*, wl_output*, std::uint32_t, std::int32_t, std::int32_t, std::int32_t) {},
        .done = [](void*, wl_output*) {},
        .scale = [](void*, wl_output*, std::int32_t) {},
        .name = [](void* data, wl_output*,
                   const char* name) { static_cast<Output*>(data)->name = name; },
        .description = [](void*, wl_output*, const char*) {}};

    Options options_;
    wl_display* display_;
    wl_compositor* compositor_ = nullptr;
    wl_shm* memory_ = nullptr;
    zwlr_layer_shell_v1* shell_ = nullptr;
    wl_surface* surface_ = nullptr;
    std::list<Output> outputs_;
    std::optional<WaylandDrag> drag_;
};

Options parse(std::span<char* const> words) {
    constexpr std::size_t withoutDrag = 4;
    constexpr std::size_t withDrag = 7;
    constexpr int hexadecimal = 16;
    if (words.size() != withoutDrag && words.size() != withDrag)
        throw std::runtime_error{"wrong number of arguments"};
    Options options{.output = words[0],
                    .edge = words[1],
                    .thickness = std::stoi(words[2]),
                    .colour =
                        static_cast<std::uint32_t>(std::stoul(words[3], nullptr, hexadecimal)),
                    .drag = {}};
    if (words.size() == withDrag) {
        std::ifstream file{words[5], std::ios::binary};
        options.drag = {words[4], {std::istreambuf_iterator<char>{file}, {}}, words[6]};
    }
    return options;
}

}

int main(int count, char** arguments) {
    const std::span<char*> all{arguments, static_cast<std::size_t>(count)};
    try {
        const Panel panel{parse(all.subspan(1))};
        panel.run();
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
