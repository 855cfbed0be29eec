/// What every kind of connection to the X server needs.
#pragma once

#include <xcb/xcb.h>

#include <memory>

namespace vireline::x11 {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const noexcept { xcb_disconnect(connection); }
};

/// A connection of our own. Even one that failed is an object that must be given back.
using OwnConnection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// The root window of a screen by its number.
[[nodiscard]] inline xcb_window_t rootOf(xcb_connection_t* connection, int screenNumber) {
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screenNumber > 0 && screen.rem > 1; --screenNumber)
        xcb_screen_next(&screen);
    return screen.data->root;
}

}
