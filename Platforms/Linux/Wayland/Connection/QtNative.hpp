/// Qt's own objects on its connection to the compositor. The only place that uses Qt's private
/// headers: a public way to all of these does not exist in Qt 6.4.
#pragma once

#include <cstdint>

class QScreen;
class QWindow;
struct wl_display;
struct wl_output;
struct wl_seat;
struct wl_surface;

namespace vireline::wayland {
class WaylandConnection;
}

/// All need the running QApplication on Qt's wayland plugin.
namespace vireline::wayland::QtNative {

[[nodiscard]] wl_display* display();
/// The user's seat; null if the compositor has none.
[[nodiscard]] wl_seat* seat(const WaylandConnection& connection);
/// The serial of the latest event of a button, key or touch; 0 without a seat.
[[nodiscard]] std::uint32_t inputSerial(const WaylandConnection& connection);

/// Null before the window's platform window has been created.
[[nodiscard]] wl_surface* surface(QWindow& window);
/// Null for Qt's placeholder while there is no display.
[[nodiscard]] wl_output* output(QScreen& screen);

}
