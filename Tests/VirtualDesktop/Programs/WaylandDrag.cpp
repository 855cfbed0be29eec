#include "WaylandDrag.hpp"

#include <unistd.h>

#include <fstream>
#include <utility>

namespace vireline::desktop {

struct WaylandDrag::Events {
    static WaylandDrag& self(void* data) { return *static_cast<WaylandDrag*>(data); }

    /// Only those of the bound version; newer descriptions of the protocol have more.
    static constexpr wl_pointer_listener pointer = [] {
        wl_pointer_listener events{};
        events.enter = [](void*, wl_pointer*, std::uint32_t, wl_surface*, wl_fixed_t, wl_fixed_t) {
        };
        events.leave = [](void*, wl_pointer*, std::uint32_t, wl_surface*) {};
        events.motion = [](void*, wl_pointer*, std::uint32_t, wl_fixed_t, wl_fixed_t) {};
        events.button = [](void* data, wl_pointer*, std::uint32_t serial, std::uint32_t,
                           std::uint32_t, std::uint32_t state) {
            if (state == WL_POINTER_BUTTON_STATE_PRESSED)
                self(data).begin(serial);
        };
        events.axis = [](void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {};
        return events;
    }();
    static constexpr wl_data_source_listener source{
        .target =
            [](void* data, wl_data_source*, const char* form) {
                // Qt refuses with an empty form.
                self(data).hasForm_ = form != nullptr && *form != 0;
                self(data).targetAnswered();
            },
        .send = [](void* data, wl_data_source*, const char*,
                   std::int32_t file) { self(data).send(file); },
        .cancelled = [](void* data, wl_data_source*) { self(data).end("not dropped"); },
        .dnd_drop_performed = [](void*, wl_data_source*) {},
        .dnd_finished = [](void* data, wl_data_source*) { self(data).end("done"); },
        .action =
            [](void* data, wl_data_source*, std::uint32_t action) {
                self(data).action_ = action;
                self(data).recordAcceptance();
            }};
    static void shown(void* data, wl_callback* callback, std::uint32_t /*time*/) {
        wl_callback_destroy(callback);
        self(data).record("shown");
    }
    static void began(void* data, wl_callback* callback, std::uint32_t /*time*/) {
        wl_callback_destroy(callback);
        self(data).record("began");
    }
    static constexpr wl_callback_listener isShown{.done = shown};
    static constexpr wl_callback_listener hasBegun{.done = began};
};

WaylandDrag::WaylandDrag(wl_display& display, Options options)
    : display_(display), options_(std::move(options)) {}

void WaylandDrag::offered(wl_registry& registry, std::uint32_t name, std::string_view interface) {
    // The first version whose drags have actions.
    constexpr std::uint32_t managerVersion = 3;
    if (interface == wl_seat_interface.name) {
        seat_ = static_cast<wl_seat*>(wl_registry_bind(&registry, name, &wl_seat_interface, 1));
    } else if (interface == wl_data_device_manager_interface.name) {
        manager_ = static_cast<wl_data_device_manager*>(
            wl_registry_bind(&registry, name, &wl_data_device_manager_interface, managerVersion));
    }
}

void WaylandDrag::beginOn(wl_surface& surface) {
    surface_ = &surface;
    device_ = wl_data_device_manager_get_data_device(manager_, seat_);
    wl_pointer_add_listener(wl_seat_get_pointer(seat_), &Events::pointer, this);
}

void WaylandDrag::begin(std::uint32_t serial) {
    source_ = wl_data_device_manager_create_data_source(manager_);
    wl_data_source_add_listener(source_, &Events::source, this);
    wl_data_source_offer(source_, options_.form.c_str());
    wl_data_source_set_actions(source_, WL_DATA_DEVICE_MANAGER_DND_ACTION_COPY);
    wl_data_device_start_drag(device_, source_, surface_, nullptr, serial);
    onceHandled(Events::hasBegun);
}

void WaylandDrag::shown() {
    // Compositors may configure a surface again at any time.
    if (!std::exchange(isShown_, true))
        onceHandled(Events::isShown);
}

void WaylandDrag::onceHandled(const wl_callback_listener& listener) {
    wl_callback_add_listener(wl_display_sync(&display_), &listener, this);
}

void WaylandDrag::end(const char* outcome) {
    wl_data_source_destroy(std::exchange(source_, nullptr));
    record(std::string{"end "} + outcome);
}

void WaylandDrag::targetAnswered() const {
    if (hasForm_)
        recordAcceptance();
    else
        record("answer refused");
}

/// The action and the form may be chosen in any order.
void WaylandDrag::recordAcceptance() const {
    if (hasForm_ && action_ != WL_DATA_DEVICE_MANAGER_DND_ACTION_NONE)
        record("answer accepted");
}

void WaylandDrag::send(int file) const {
    std::string_view rest = options_.text;
    while (!rest.empty()) {
        const auto written = write(file, rest.data(), rest.size());
        if (written <= 0)
            break;
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    close(file);
}

void WaylandDrag::record(const std::string& line) const {
    std::ofstream{options_.record, std::ios::app} << line << '\n';
}

}
