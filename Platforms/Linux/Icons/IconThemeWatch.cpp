#include "Icons/IconThemeWatch.hpp"

#include "Files/PathFollower.hpp"
#include "Icons/XSettings.hpp"
#include "Platform/RunLoop.hpp"
#include "X11/X11Connection.hpp"

#include <cstdint>
#include <utility>

namespace vireline::x11 {
namespace {

/// Debounce time: a desktop writes its choice to several places in quick succession.
constexpr double themeSettlingSeconds = 0.2;

}

IconThemeWatch::IconThemeWatch(X11Connection& connection, RunLoop& runLoop, Sources sources)
    : connection_(connection)
    , runLoop_(runLoop)
    , sources_(std::move(sources))
    , events_(connection.observe(
          lifetime_.guard([this](const xcb_generic_event_t& event) { handle(event); }))) {
    // A new settings daemon announces itself on the root window.
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    watchDaemon();
    watchFiles();
    name_ =
        ChosenIconTheme::name(sources_.folders, XSettings::read(connection_).texts, sources_.files);
}

void IconThemeWatch::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_PROPERTY_NOTIFY:
        if (daemon_ != XCB_NONE &&
            reinterpret_cast<const xcb_property_notify_event_t&>(event).window == daemon_)
            lookSoon();
        break;
    case XCB_CLIENT_MESSAGE: {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.window == connection_.root() && message.format == 32 &&
            message.type == connection_.atom("MANAGER") &&
            message.data.data32[1] == connection_.atom(XSettings::selection(connection_))) {
            watchDaemon();
            lookSoon();
        }
        break;
    }
    case XCB_DESTROY_NOTIFY:
        // The theme is kept when the daemon exits, since it may be about to restart.
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == daemon_)
            daemon_ = XCB_NONE;
        break;
    default:
        break;
    }
}

void IconThemeWatch::watchDaemon() {
    daemon_ = XSettings::owner(connection_);
    if (daemon_ != XCB_NONE)
        connection_.selectInput(daemon_,
                                XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void IconThemeWatch::watchFiles() {
    for (const std::string& path : sources_.files.usersOwn) {
        auto watch = followPath(FileURL::fromPath(path),
                                lifetime_.guard([this](PathEvents) { lookSoon(); }));
        if (watch)
            fileWatches_.push_back(*std::move(watch));
    }
}

void IconThemeWatch::lookSoon() {
    look_ = runLoop_.after(themeSettlingSeconds, lifetime_.guard([this] { look(); }));
}

void IconThemeWatch::look() {
    const auto settings = XSettings::read(connection_);
    auto name = ChosenIconTheme::name(sources_.folders, settings.texts, sources_.files);
    if (name == name_)
        return;
    name_ = std::move(name);
    if (onChange)
        onChange();
}

}
