#include "Displays/WaylandScreens.hpp"

#include "Connection/QtNative.hpp"
#include "Connection/WaylandConnection.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace vireline::wayland {
namespace {

/// While there is no display, Qt has a placeholder without a name.
bool isReal(QScreen& screen) {
    return QtNative::output(screen) != nullptr;
}

}

WaylandScreens::WaylandScreens(const WaylandConnection& connection, const std::string& swaySocket)
    : connection_(connection) {
    if (!swaySocket.empty())
        workspaces_ = SwayWorkspaces::open(swaySocket, [this] { refreshSoon(); });
    auto* const application = qGuiApp;
    QObject::connect(application, &QGuiApplication::screenAdded, &context_,
                     [this](QScreen* screen) {
                         watch(screen);
                         refreshSoon();
                     });
    QObject::connect(application, &QGuiApplication::screenRemoved, &context_,
                     [this](QScreen* screen) {
                         // The protocol's object of the display is still valid, but not for long.
                         reserved_.erase(screen->name().toStdString());
                         refreshSoon();
                     });
    for (QScreen* const screen : QGuiApplication::screens())
        watch(screen);
    outputs_ = read();
}

void WaylandScreens::watch(QScreen* screen) {
    if (!isReal(*screen))
        return;
    const auto changed = [this] {
        if (workspaces_)
            workspaces_->refresh();
        refreshSoon();
    };
    QObject::connect(screen, &QScreen::geometryChanged, &context_, changed);
    QObject::connect(screen, &QScreen::physicalDotsPerInchChanged, &context_, changed);
    auto space = std::make_unique<ReservedSpace>(connection_, QtNative::output(*screen));
    space->onChange = changed;
    reserved_[screen->name().toStdString()] = std::move(space);
}

/// Coalesces all changes within one turn of the event loop.
void WaylandScreens::refreshSoon() {
    if (std::exchange(refreshIsDue_, true))
        return;
    QMetaObject::invokeMethod(&context_, [this] { refresh(); }, Qt::QueuedConnection);
}

void WaylandScreens::refresh() {
    refreshIsDue_ = false;
    outputs_ = read();
    observers_.notify();
}

std::vector<OutputState> WaylandScreens::read() const {
    std::vector<OutputState> outputs;
    for (QScreen* const screen : QGuiApplication::screens()) {
        if (!isReal(*screen))
            continue;
        outputs.push_back({.name = screen->name().toStdString(),
                           .geometry = screen->geometry(),
                           .scale = screen->devicePixelRatio(),
                           .reserved = reservedOn(*screen)});
    }
    return ScreenLayout::inOrder(std::move(outputs));
}

Insets WaylandScreens::reservedOn(QScreen& screen) const {
    const auto name = screen.name().toStdString();
    const auto space = reserved_.find(name);
    if (space == reserved_.end() || space->second->free().isEmpty())
        return {};
    const QRect whole = screen.geometry();
    const auto workspace = workspaces_ ? workspaces_->on(name) : std::nullopt;
    if (!workspace)
        return space->second->insets(whole.size());
    return ScreenLayout::withoutGaps(
        whole.size(), space->second->free(),
        {.left = workspace->x() - whole.x(),
         .top = workspace->y() - whole.y(),
         .right = whole.x() + whole.width() - workspace->x() - workspace->width(),
         .bottom = whole.y() + whole.height() - workspace->y() - workspace->height()});
}

std::vector<PlatformScreen> WaylandScreens::screens() const {
    return ScreenLayout::screens(outputs_);
}

Subscription WaylandScreens::observeParameters(std::function<void()> handler) {
    return observers_.add(std::move(handler));
}

QScreen* WaylandScreens::qtScreen(std::uint32_t displayID) const {
    for (QScreen* const screen : QGuiApplication::screens()) {
        if (isReal(*screen) && ScreenLayout::displayID(screen->name().toStdString()) == displayID)
            return screen;
    }
    return nullptr;
}

std::string WaylandScreens::nameOf(std::uint32_t displayID) const {
    const QScreen* const screen = qtScreen(displayID);
    return screen == nullptr ? std::string{} : screen->name().toStdString();
}

QRect WaylandScreens::primary() const {
    return outputs_.empty() ? QRect{} : outputs_.front().geometry;
}

QPoint WaylandScreens::cornerOf(std::uint32_t displayID) const {
    const auto found = std::ranges::find_if(outputs_, [&](const OutputState& output) {
        return ScreenLayout::displayID(output.name) == displayID;
    });
    return found == outputs_.end() ? QPoint{} : found->geometry.topLeft();
}

QRectF WaylandScreens::toQt(const Rect& global) const {
    return ScreenLayout::toLayout(global, primary());
}

}
