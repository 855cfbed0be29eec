#include "VirtualDesktop/Screen/Monitors.hpp"

#include <sys/uio.h>
#include <xcb/randr.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace vireline::desktop {
namespace {

/// The wire format of SetMonitor with at most one output. libxcb's own function sends an
/// uninitialised part.
struct SetMonitor {
    xcb_randr_set_monitor_request_t header;
    xcb_randr_monitor_info_t info;
    xcb_randr_output_t output;
};

void send(const XClient& client, SetMonitor& request, const std::string& name) {
    const auto length = sizeof request.header + sizeof request.info +
                        (request.info.nOutput * sizeof request.output);
    // libxcb uses the two entries before the first.
    std::array<iovec, 3> parts{};
    parts[2] = {&request, length};
    const xcb_protocol_request_t kind{1, &xcb_randr_id, XCB_RANDR_SET_MONITOR, 1};
    const auto sequence = xcb_send_request(client.get(), XCB_REQUEST_CHECKED, &parts[2], &kind);
    const Owned<xcb_generic_error_t> error{xcb_request_check(client.get(), {sequence})};
    if (error)
        throw std::runtime_error{"the X server refuses the monitor " + name};
}

Owned<xcb_randr_get_monitors_reply_t> attachedMonitors(const XClient& client) {
    Owned<xcb_randr_get_monitors_reply_t> reply{xcb_randr_get_monitors_reply(
        client.get(), xcb_randr_get_monitors(client.get(), client.root(), 1), nullptr)};
    if (!reply)
        throw std::runtime_error{"the X server has no RandR 1.5"};
    return reply;
}

/// Whether an attached monitor is one of `monitors`, unchanged.
bool isWanted(const XClient& client, const xcb_randr_monitor_info_t& info,
              const std::vector<Monitor>& monitors) {
    return std::ranges::any_of(monitors, [&](const auto& monitor) {
        return info.name == client.atom(monitor.name) &&
               PixelRect{info.x, info.y, info.width, info.height} == monitor.frame &&
               (info.primary != 0) == (monitor == monitors.front());
    });
}

/// The server's only output. A monitor that owns it replaces the automatic one.
xcb_randr_output_t onlyOutput(const XClient& client) {
    const Owned<xcb_randr_get_screen_resources_current_reply_t> resources{
        xcb_randr_get_screen_resources_current_reply(
            client.get(), xcb_randr_get_screen_resources_current(client.get(), client.root()),
            nullptr)};
    if (!resources || xcb_randr_get_screen_resources_current_outputs_length(resources.get()) < 1)
        throw std::runtime_error{"the X server has no output"};
    return *xcb_randr_get_screen_resources_current_outputs(resources.get());
}

void attach(const XClient& client, const Monitor& monitor, bool isPrimary) {
    SetMonitor request{};
    request.header.window = client.root();
    request.info.name = client.atom(monitor.name);
    request.info.primary = isPrimary ? 1 : 0;
    request.info.x = static_cast<std::int16_t>(monitor.frame.x);
    request.info.y = static_cast<std::int16_t>(monitor.frame.y);
    request.info.width = static_cast<std::uint16_t>(monitor.frame.width);
    request.info.height = static_cast<std::uint16_t>(monitor.frame.height);
    // About 96 dots per inch, so that toolkits do not choose a scale on their own.
    constexpr int pixelsPer10Millimetres = 38;
    request.info.width_in_millimeters =
        static_cast<std::uint32_t>(monitor.frame.width * 10 / pixelsPer10Millimetres);
    request.info.height_in_millimeters =
        static_cast<std::uint32_t>(monitor.frame.height * 10 / pixelsPer10Millimetres);
    if (isPrimary) {
        request.info.nOutput = 1;
        request.output = onlyOutput(client);
    }
    send(client, request, monitor.name);
}

}

void setMonitors(const XClient& client, const std::vector<Monitor>& monitors) {
    // Hides intermediate states from other clients, such as the automatic monitor that appears when
    // the primary is removed.
    xcb_grab_server(client.get());
    std::vector<xcb_atom_t> kept;
    const auto attached = attachedMonitors(client);
    auto next = xcb_randr_get_monitors_monitors_iterator(attached.get());
    for (; next.rem > 0; xcb_randr_monitor_info_next(&next)) {
        if (isWanted(client, *next.data, monitors))
            kept.push_back(next.data->name);
        else if (next.data->automatic == 0)
            xcb_randr_delete_monitor(client.get(), client.root(), next.data->name);
    }
    for (const auto& monitor : monitors) {
        if (std::ranges::find(kept, client.atom(monitor.name)) == kept.end())
            attach(client, monitor, monitor == monitors.front());
    }
    xcb_ungrab_server(client.get());
    client.sync();
}

std::uint32_t displayID(const XClient& client, const std::string& monitor) {
    return client.atom(monitor);
}

}
