#include "Displays/Outputs.hpp"

#include "Connection/EventText.hpp"

#include <wayland-client.h>
#include <xdg-output-unstable-v1-client-protocol.h>

#include <algorithm>
#include <utility>

namespace vireline::wayland {
namespace {

constexpr std::uint32_t outputVersion = 3;
constexpr std::uint32_t namesVersion = 3;

/// For outputs that report no refresh rate, such as those of nested compositors.
constexpr std::chrono::microseconds usualInterval{16'667};

}

struct Output::Events {
    static void geometry(void* /*data*/, wl_output* /*output*/, std::int32_t /*x*/,
                         std::int32_t /*y*/, std::int32_t /*width*/, std::int32_t /*height*/,
                         std::int32_t /*subpixel*/, const char* /*make*/, const char* /*model*/,
                         std::int32_t /*transform*/) {}
    static void mode(void* data, wl_output* /*output*/, std::uint32_t flags, std::int32_t /*width*/,
                     std::int32_t /*height*/, std::int32_t milliHertz) {
        if ((flags & WL_OUTPUT_MODE_CURRENT) == 0)
            return;
        constexpr std::chrono::nanoseconds thousandSeconds = std::chrono::seconds{1000};
        static_cast<Output*>(data)->interval_ =
            milliHertz <= 0 ? usualInterval
                            : std::chrono::duration_cast<std::chrono::microseconds>(
                                  thousandSeconds / milliHertz);
    }
    static void done(void* data, wl_output* /*output*/) { static_cast<Output*>(data)->onChange_(); }
    static void scale(void* data, wl_output* /*output*/, std::int32_t factor) {
        static_cast<Output*>(data)->scale_ = std::max(1, factor);
    }

    static void position(void* /*data*/, zxdg_output_v1* /*output*/, std::int32_t /*x*/,
                         std::int32_t /*y*/) {}
    static void size(void* /*data*/, zxdg_output_v1* /*output*/, std::int32_t /*width*/,
                     std::int32_t /*height*/) {}
    static void named(void* data, zxdg_output_v1* /*output*/, const char* name) {
        auto& self = *static_cast<Output*>(data);
        self.name_ = eventText(name);
        self.onChange_();
    }
    static void described(void* /*data*/, zxdg_output_v1* /*output*/, const char* /*text*/) {}

    /// Newer versions have more events, which are never sent to this one.
    static constexpr wl_output_listener output = [] {
        wl_output_listener events{};
        events.geometry = geometry;
        events.mode = mode;
        events.done = done;
        events.scale = scale;
        return events;
    }();
    static constexpr zxdg_output_v1_listener name{
        .logical_position = position,
        .logical_size = size,
        .done = [](void* /*data*/, zxdg_output_v1* /*output*/) {},
        .name = named,
        .description = described};
};

Output::Output(Proxy<wl_output> output, std::function<void()> onChange)
    : output_(std::move(output)), onChange_(std::move(onChange)), interval_(usualInterval) {
    wl_output_add_listener(output_.get(), &Events::output, this);
}

Output::~Output() = default;

void Output::learnName(zxdg_output_manager_v1& manager) {
    nameOnly_.reset(zxdg_output_manager_v1_get_xdg_output(&manager, output_.get()));
    zxdg_output_v1_add_listener(nameOnly_.get(), &Events::name, this);
}

Outputs::Outputs(WaylandConnection& connection)
    : connection_(connection)
    , manager_(
          connection.bind<zxdg_output_manager_v1>(zxdg_output_manager_v1_interface, namesVersion))
    , globals_(connection.observe([this] { update(); })) {
    update();
    connection.flush();
}

const Output* Outputs::named(std::string_view name) const {
    const auto found = std::ranges::find_if(
        outputs_, [&](const auto& entry) { return entry.second->name() == name; });
    return name.empty() || found == outputs_.end() ? nullptr : found->second.get();
}

void Outputs::update() {
    const auto numbers = connection_.numbers(wl_output_interface.name);
    const auto gone = std::erase_if(outputs_, [&](const auto& entry) {
        return std::ranges::find(numbers, entry.first) == numbers.end();
    });
    for (const std::uint32_t number : numbers) {
        if (outputs_.contains(number))
            continue;
        auto output = std::make_unique<Output>(
            connection_.bindNumber<wl_output>(number, wl_output_interface, outputVersion),
            [this] { observers_.notify(); });
        if (manager_)
            output->learnName(*manager_);
        outputs_[number] = std::move(output);
    }
    if (gone > 0)
        observers_.notify();
}

}
