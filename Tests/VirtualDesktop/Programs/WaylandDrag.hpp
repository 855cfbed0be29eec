/// Lets content be dragged out of a surface of a test program under a Wayland compositor, and
/// records what the compositor says of it, each in a line of its own:
///
///     shown
///     began
///     answer accepted|refused     what the target says, perhaps repeatedly; nothing outside of one
///     end done|not dropped
#pragma once

#include <wayland-client.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace vireline::desktop {

class WaylandDrag {
public:
    struct Options {
        std::string form;
        std::string text;
        std::string record;
    };

    WaylandDrag(wl_display& display, Options options);

    /// To be called with each global that the compositor offers.
    void offered(wl_registry& registry, std::uint32_t name, std::string_view interface);

    /// From now on, a press of a button on any of the program's surfaces, which is `surface`,
    /// begins a drag.
    void beginOn(wl_surface& surface);

    /// To be called when the surface's content has been committed.
    void shown();

private:
    struct Events;

    /// Calls the listener once the compositor has handled all requests so far.
    void onceHandled(const wl_callback_listener& listener);
    void begin(std::uint32_t serial);
    void end(const char* outcome);
    void targetAnswered() const;
    void recordAcceptance() const;
    void send(int file) const;
    void record(const std::string& line) const;

    wl_display& display_;
    Options options_;
    wl_seat* seat_ = nullptr;
    wl_data_device_manager* manager_ = nullptr;
    wl_data_device* device_ = nullptr;
    wl_surface* surface_ = nullptr;
    wl_data_source* source_ = nullptr;
    bool isShown_ = false;
    /// The target's answer: whether it takes one of the formats, and the action.
    bool hasForm_ = false;
    std::uint32_t action_ = WL_DATA_DEVICE_MANAGER_DND_ACTION_NONE;
};

}
