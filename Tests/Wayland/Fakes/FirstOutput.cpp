#include "Wayland/Fakes/FirstOutput.hpp"

#include "Connection/Proxies.hpp"

#include <string_view>

namespace vireline::wayland {

OwnedOutput firstOutput(wl_display* display) {
    wl_output* output = nullptr;
    const Proxy<wl_registry> registry{wl_display_get_registry(display)};
    static constexpr wl_registry_listener listener{
        .global =
            [](void* data, wl_registry* globals, std::uint32_t name, const char* interface,
               std::uint32_t /*version*/) {
                auto& first = *static_cast<wl_output**>(data);
                if (first == nullptr && std::string_view{interface} == "wl_output")
                    first = static_cast<wl_output*>(
                        wl_registry_bind(globals, name, &wl_output_interface, 1));
            },
        .global_remove = [](void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*name*/) {}};
    wl_registry_add_listener(registry.get(), &listener, &output);
    wl_display_roundtrip(display);
    return OwnedOutput{output};
}

}
