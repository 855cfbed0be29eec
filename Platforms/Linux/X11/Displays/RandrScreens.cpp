#include "Displays/RandrScreens.hpp"

#include "Connection/X11Connection.hpp"
#include "Files/Log/StartLog.hpp"

#include <xcb/randr.h>

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cstddef>
#include <utility>

namespace vireline::x11 {
namespace {

QScreen* qtScreenNamed(const std::string& name) {
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find(screens, QString::fromStdString(name), &QScreen::name);
    return found == screens.end() ? nullptr : *found;
}

}

RandrScreens::RandrScreens(X11Connection& connection)
    : connection_(connection)
    , monitorsAreListed_(Monitors::areListed(connection))
    , strutWindows_(connection)
    , events_(connection.observe([this](const xcb_generic_event_t& event) { handle(event); }))
    , sleepWatch_([this] { refreshSoon(true); }) {
    if (monitorsAreListed_) {
        firstRandrEvent_ = xcb_get_extension_data(connection.get(), &xcb_randr_id)->first_event;
        // The selection replaces Qt's on this shared connection, so it includes everything that Qt
        // selects.
        xcb_randr_select_input(
            connection.get(), connection.root(),
            XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE |
                XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_PROPERTY |
                XCB_RANDR_NOTIFY_MASK_RESOURCE_CHANGE);
    } else {
        xdg::logOnceStarted("no monitors from the X server, displays as Qt finds them");
    }
    connection.selectInput(connection.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    strutWindows_.onChange = [this] { refreshSoon(false); };
    watchQtScreens();
    snapshot_ = read();
}

std::vector<PlatformScreen> RandrScreens::screens() const {
    return snapshot_.screens;
}

Subscription RandrScreens::observeParameters(std::function<void()> handler) {
    return observers_.add(std::move(handler));
}

std::optional<Display> RandrScreens::display(std::uint32_t displayID) const {
    for (std::size_t i = 0; i < snapshot_.screens.size(); ++i) {
        if (snapshot_.screens[i].number == displayID)
            return snapshot_.displays[i];
    }
    return std::nullopt;
}

QScreen* RandrScreens::qtScreen(std::uint32_t displayID) const {
    return qtScreenNamed(nameOf(displayID));
}

RandrScreens::Snapshot RandrScreens::read() {
    auto monitors = monitorsAreListed_ ? Monitors::list(connection_) : std::vector<Monitor>{};
    if (monitors.empty())
        monitors = Monitors::ofQtScreens(connection_);
    monitors = Monitors::inOrder(std::move(monitors));

    std::vector<PixelRect> frames;
    frames.reserve(monitors.size());
    for (const Monitor& monitor : monitors) {
        frames.push_back(monitor.pixels);
    }
    const auto visible =
        Struts::visibleFrames(frames, Monitors::root(connection_), strutWindows_.read());

    Snapshot snapshot;
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        const Monitor& monitor = monitors[i];
        const QScreen* const screen = qtScreenNamed(nameOf(monitor.name));
        const Display display = DisplayGeometry::display(
            monitor.pixels, frames.front(), screen != nullptr ? screen->devicePixelRatio() : 1);
        snapshot.displays.push_back(display);
        snapshot.screens.push_back({
            .number = monitor.name != XCB_ATOM_NONE ? std::optional{monitor.name} : std::nullopt,
            .unitNumber = monitor.index,
            .frame = DisplayGeometry::frame(display),
            .visibleFrame = DisplayGeometry::toPoints(display, visible[i]),
            .backingScaleFactor = display.scale,
        });
    }
    return snapshot;
}

/// Cached for good, because an atom's name never changes.
const std::string& RandrScreens::nameOf(std::uint32_t displayID) const {
    const auto [entry, isNew] = names_.try_emplace(displayID);
    if (isNew)
        entry->second = connection_.atomName(displayID);
    return entry->second;
}

void RandrScreens::watchQtScreens() {
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context_, [this](QScreen* screen) {
        watchScale(screen);
        refreshSoon(false);
    });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &context_,
                     [this] { refreshSoon(false); });
    const auto screens = QGuiApplication::screens();
    for (QScreen* const screen : screens) {
        watchScale(screen);
    }
}

void RandrScreens::watchScale(QScreen* screen) {
    const auto refresh = [this] { refreshSoon(false); };
    QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, &context_, refresh);
    QObject::connect(screen, &QScreen::geometryChanged, &context_, refresh);
}

void RandrScreens::handle(const xcb_generic_event_t& event) {
    const int kind = eventType(event);
    const bool isRandr =
        monitorsAreListed_ && (kind == firstRandrEvent_ + XCB_RANDR_NOTIFY ||
                               kind == firstRandrEvent_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY);
    if (isRandr || isScreenReconfigured(event))
        refreshSoon(true);
}

/// A change of user-defined monitors is only announced by a ConfigureNotify on the root window.
bool RandrScreens::isScreenReconfigured(const xcb_generic_event_t& event) const {
    return eventType(event) == XCB_CONFIGURE_NOTIFY &&
           as<xcb_configure_notify_event_t>(event).window == connection_.root();
}

/// Deferred to the event loop's next turn, so that Qt has handled the events too and bursts are
/// coalesced.
void RandrScreens::refreshSoon(bool announce) {
    announcementIsDue_ = announcementIsDue_ || announce;
    if (std::exchange(refreshIsDue_, true))
        return;
    QMetaObject::invokeMethod(&context_, [this] { refresh(); }, Qt::QueuedConnection);
}

void RandrScreens::refresh() {
    refreshIsDue_ = false;
    const bool announce = std::exchange(announcementIsDue_, false);
    Snapshot snapshot = read();
    const bool isNew = snapshot != snapshot_;
    snapshot_ = std::move(snapshot);
    if (announce || isNew)
        observers_.notify();
}

}
