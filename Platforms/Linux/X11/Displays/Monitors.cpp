#include "Displays/Monitors.hpp"

#include "Connection/X11Connection.hpp"

#include <xcb/randr.h>

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace vireline::x11::Monitors {

bool areListed(const X11Connection& connection) {
    const auto* extension = xcb_get_extension_data(connection.get(), &xcb_randr_id);
    if (extension == nullptr || extension->present == 0)
        return false;
    const Owned<xcb_randr_query_version_reply_t> version{xcb_randr_query_version_reply(
        connection.get(), xcb_randr_query_version(connection.get(), 1, 5), nullptr)};
    return version && (version->major_version > 1 || version->minor_version >= 5);
}

std::vector<Monitor> list(const X11Connection& connection) {
    constexpr std::uint8_t activeOnly = 1;
    const Owned<xcb_randr_get_monitors_reply_t> reply{xcb_randr_get_monitors_reply(
        connection.get(), xcb_randr_get_monitors(connection.get(), connection.root(), activeOnly),
        nullptr)};
    std::vector<Monitor> monitors;
    if (!reply)
        return monitors;
    std::uint32_t index = 0;
    for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem > 0;
         xcb_randr_monitor_info_next(&it), ++index) {
        const xcb_randr_monitor_info_t& info = *it.data;
        if (info.width > 0 && info.height > 0) {
            monitors.push_back(
                {info.name, index, {info.x, info.y, info.width, info.height}, info.primary != 0});
        }
    }
    return monitors;
}

std::vector<Monitor> ofQtScreens(const X11Connection& connection) {
    std::vector<Monitor> monitors;
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const QRect geometry = screen->geometry();
        const double ratio = screen->devicePixelRatio();
        monitors.push_back(
            {connection.atom(screen->name().toStdString()),
             static_cast<std::uint32_t>(monitors.size()),
             {geometry.x(), geometry.y(), static_cast<int>(std::lround(geometry.width() * ratio)),
              static_cast<int>(std::lround(geometry.height() * ratio))},
             screen == QGuiApplication::primaryScreen()});
    }
    if (monitors.size() == 1)
        monitors.front().pixels = root(connection);
    return monitors;
}

PixelRect root(const X11Connection& connection) {
    const Owned<xcb_get_geometry_reply_t> reply{xcb_get_geometry_reply(
        connection.get(), xcb_get_geometry(connection.get(), connection.root()), nullptr)};
    return reply ? PixelRect{0, 0, reply->width, reply->height} : PixelRect{};
}

std::vector<Monitor> inOrder(std::vector<Monitor> monitors) {
    const auto primary = std::ranges::find_if(monitors, &Monitor::isPrimary);
    if (primary != monitors.end())
        std::rotate(monitors.begin(), primary, primary + 1);
    std::vector<Monitor> kept;
    for (const Monitor& monitor : monitors) {
        if (std::ranges::find(kept, monitor.pixels, &Monitor::pixels) == kept.end())
            kept.push_back(monitor);
    }
    return kept;
}

}
