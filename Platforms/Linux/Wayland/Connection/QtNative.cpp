#include "Connection/QtNative.hpp"

#include "Connection/WaylandConnection.hpp"

#include <qpa/qplatformnativeinterface.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace vireline::wayland::QtNative {
namespace {

void* ofIntegration(const char* name) {
    return QGuiApplication::platformNativeInterface()->nativeResourceForIntegration(name);
}

/// Without a seat, Qt crashes when it is asked for it or for the serial.
bool hasSeat(const WaylandConnection& connection) {
    return connection.offered("wl_seat") > 0;
}

}

wl_display* display() {
    return static_cast<wl_display*>(ofIntegration("wl_display"));
}

wl_seat* seat(const WaylandConnection& connection) {
    return hasSeat(connection) ? static_cast<wl_seat*>(ofIntegration("wl_seat")) : nullptr;
}

std::uint32_t inputSerial(const WaylandConnection& connection) {
    if (!hasSeat(connection))
        return 0;
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(ofIntegration("serial")));
}

wl_surface* surface(QWindow& window) {
    if (window.handle() == nullptr)
        return nullptr;
    return static_cast<wl_surface*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window));
}

wl_output* output(QScreen& screen) {
    // Qt crashes when it is asked for the placeholder's.
    if (screen.name().isEmpty())
        return nullptr;
    return static_cast<wl_output*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForScreen("output", &screen));
}

}
