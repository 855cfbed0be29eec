#include "VirtualDesktop/Screen/Outputs.hpp"

#include <xcb/randr.h>

#include <algorithm>
#include <optional>
#include <span>
#include <stdexcept>

namespace vireline::desktop {
namespace {

/// An output and the CRTC that drives it, if any.
struct Output {
    std::string name;
    xcb_randr_output_t id = XCB_NONE;
    xcb_randr_crtc_t controller = XCB_NONE;
    std::vector<xcb_randr_crtc_t> controllers;
    std::vector<xcb_randr_mode_t> modes;
};

/// A snapshot of the server's outputs and modes.
class Outputs {
public:
    explicit Outputs(const XClient& client)
        : client_(client)
        , resources_(xcb_randr_get_screen_resources_current_reply(
              client.get(), xcb_randr_get_screen_resources_current(client.get(), client.root()),
              nullptr)) {
        if (!resources_)
            throw std::runtime_error{"the X server tells no outputs"};
        const std::span ids{xcb_randr_get_screen_resources_current_outputs(resources_.get()),
                            resources_->num_outputs};
        for (const auto id : ids)
            outputs_.push_back(read(id));
    }

    [[nodiscard]] const std::vector<Output>& all() const noexcept { return outputs_; }

    [[nodiscard]] const Output& named(const std::string& name) const {
        const auto found = std::ranges::find(outputs_, name, &Output::name);
        if (found == outputs_.end())
            throw std::runtime_error{"the X server has no output " + name};
        return *found;
    }

    /// The area shown by a CRTC; empty while it is off.
    [[nodiscard]] PixelRect frame(xcb_randr_crtc_t controller) const {
        const Owned<xcb_randr_get_crtc_info_reply_t> info{xcb_randr_get_crtc_info_reply(
            client_.get(), xcb_randr_get_crtc_info(client_.get(), controller, time()), nullptr)};
        if (!info)
            return {};
        return {info->x, info->y, info->width, info->height};
    }

    /// The mode of this size, added to the output if necessary.
    [[nodiscard]] xcb_randr_mode_t mode(const Output& output, int width, int height) const {
        const std::span modes{xcb_randr_get_screen_resources_current_modes(resources_.get()),
                              resources_->num_modes};
        const auto found = std::ranges::find_if(
            modes, [&](const auto& mode) { return mode.width == width && mode.height == height; });
        const auto id = found == modes.end() ? create(width, height) : found->id;
        if (std::ranges::find(output.modes, id) == output.modes.end())
            xcb_randr_add_output_mode(client_.get(), output.id, id);
        return id;
    }

    /// A CRTC for the output that is not in `used`.
    [[nodiscard]] static xcb_randr_crtc_t
    freeController(const Output& output, const std::vector<xcb_randr_crtc_t>& used) {
        const auto isFree = [&](auto id) { return std::ranges::find(used, id) == used.end(); };
        const auto found = std::ranges::find_if(output.controllers, isFree);
        if (found == output.controllers.end())
            throw std::runtime_error{"no controller is left for " + output.name};
        return *found;
    }

    /// Shows the mode on the CRTC's output; without a mode, switches it off.
    void set(xcb_randr_crtc_t controller, PixelPoint place, xcb_randr_mode_t mode,
             std::optional<xcb_randr_output_t> output) const {
        const Owned<xcb_randr_set_crtc_config_reply_t> reply{xcb_randr_set_crtc_config_reply(
            client_.get(),
            xcb_randr_set_crtc_config(
                client_.get(), controller, XCB_CURRENT_TIME, time(),
                static_cast<std::int16_t>(place.x), static_cast<std::int16_t>(place.y), mode,
                XCB_RANDR_ROTATION_ROTATE_0, output ? 1 : 0, output ? &*output : nullptr),
            nullptr)};
        if (!reply || reply->status != XCB_RANDR_SET_CONFIG_SUCCESS)
            throw std::runtime_error{"the X server refuses a monitor"};
    }

private:
    [[nodiscard]] xcb_timestamp_t time() const { return resources_->config_timestamp; }

    [[nodiscard]] Output read(xcb_randr_output_t id) const {
        const Owned<xcb_randr_get_output_info_reply_t> info{xcb_randr_get_output_info_reply(
            client_.get(), xcb_randr_get_output_info(client_.get(), id, time()), nullptr)};
        if (!info)
            throw std::runtime_error{"the X server does not know its own output"};
        const auto* const name = xcb_randr_get_output_info_name(info.get());
        const auto* const controllers = xcb_randr_get_output_info_crtcs(info.get());
        const auto* const modes = xcb_randr_get_output_info_modes(info.get());
        Output output;
        output.name.assign(name, name + info->name_len);
        output.id = id;
        output.controller = info->crtc;
        output.controllers.assign(controllers, controllers + info->num_crtcs);
        output.modes.assign(modes, modes + info->num_modes);
        return output;
    }

    /// A 60 Hz mode with blanking intervals as short as monitors support.
    [[nodiscard]] xcb_randr_mode_t create(int width, int height) const {
        const auto card16 = [](int value) { return static_cast<std::uint16_t>(value); };
        const std::string name = std::to_string(width) + 'x' + std::to_string(height);
        xcb_randr_mode_info_t mode{};
        mode.width = card16(width);
        mode.height = card16(height);
        mode.hsync_start = card16(width + 48);
        mode.hsync_end = card16(width + 80);
        mode.htotal = card16(width + 160);
        mode.vsync_start = card16(height + 3);
        mode.vsync_end = card16(height + 13);
        mode.vtotal = card16(height + 30);
        constexpr std::uint32_t refreshRate = 60;
        mode.dot_clock = refreshRate * mode.htotal * mode.vtotal;
        mode.name_len = card16(static_cast<int>(name.size()));
        const Owned<xcb_randr_create_mode_reply_t> reply{xcb_randr_create_mode_reply(
            client_.get(),
            xcb_randr_create_mode(client_.get(), client_.root(), mode, mode.name_len, name.data()),
            nullptr)};
        if (!reply)
            throw std::runtime_error{"the X server refuses the mode " + name};
        return reply->mode;
    }

    const XClient& client_;
    Owned<xcb_randr_get_screen_resources_current_reply_t> resources_;
    std::vector<Output> outputs_;
};

void growScreen(const XClient& client, const std::vector<Monitor>& monitors) {
    const auto now = client.frame(client.root()).value_or(PixelRect{});
    int width = now.width;
    int height = now.height;
    for (const auto& monitor : monitors) {
        width = std::max(width, monitor.frame.right());
        height = std::max(height, monitor.frame.bottom());
    }
    // 96 dots per inch.
    const auto millimetres = [](int pixels) {
        return static_cast<std::uint32_t>(pixels * 254 / 960);
    };
    xcb_randr_set_screen_size(client.get(), client.root(), static_cast<std::uint16_t>(width),
                              static_cast<std::uint16_t>(height), millimetres(width),
                              millimetres(height));
}

/// Makes the server probe its outputs: this driver's outputs count as connected once they show
/// something, and clients would ignore them until then.
void findConnected(const XClient& client) {
    const Owned<xcb_randr_get_screen_resources_reply_t> reply{xcb_randr_get_screen_resources_reply(
        client.get(), xcb_randr_get_screen_resources(client.get(), client.root()), nullptr)};
    if (!reply)
        throw std::runtime_error{"the X server tells no outputs"};
}

}

std::string outputName(int index) {
    return "DUMMY" + std::to_string(index);
}

void setOutputs(const XClient& client, const std::vector<Monitor>& monitors) {
    const Outputs outputs{client};
    const auto isKept = [&](const Output& output) {
        const auto found = std::ranges::find(monitors, output.name, &Monitor::name);
        return found != monitors.end() && outputs.frame(output.controller) == found->frame;
    };
    // A single change, as the X server's own tools make it.
    xcb_grab_server(client.get());
    std::vector<xcb_randr_crtc_t> used;
    for (const auto& output : outputs.all()) {
        if (output.controller == XCB_NONE)
            continue;
        if (isKept(output))
            used.push_back(output.controller);
        else
            outputs.set(output.controller, {}, XCB_NONE, {});
    }
    growScreen(client, monitors);
    for (const auto& monitor : monitors) {
        const auto& output = outputs.named(monitor.name);
        if (output.controller != XCB_NONE && isKept(output))
            continue;
        const auto controller = Outputs::freeController(output, used);
        used.push_back(controller);
        outputs.set(controller, {monitor.frame.x, monitor.frame.y},
                    outputs.mode(output, monitor.frame.width, monitor.frame.height), output.id);
    }
    if (!monitors.empty())
        xcb_randr_set_output_primary(client.get(), client.root(),
                                     outputs.named(monitors.front().name).id);
    xcb_ungrab_server(client.get());
    findConnected(client);
}

}
