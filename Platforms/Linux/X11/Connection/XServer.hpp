/// A plain connection to the X server that DISPLAY names, opened before anything else: checks
/// cheaply that the server exists, and is used to find a running instance before Qt starts.
#pragma once

#include "Connection/XcbHandles.hpp"
#include "Foundation/Result.hpp"

#include <xcb/xcb.h>

namespace vireline::x11 {

class XServer {
public:
    /// Fails with a message for the user if there is no X server or it refuses the connection.
    [[nodiscard]] static Result<XServer> connect();

    [[nodiscard]] xcb_connection_t* connection() const noexcept { return connection_.get(); }
    [[nodiscard]] int screenNumber() const noexcept { return screenNumber_; }
    [[nodiscard]] xcb_window_t root() const noexcept { return root_; }

    /// XCB_ATOM_NONE if the server is gone.
    [[nodiscard]] xcb_atom_t atom(const std::string& name) const;

private:
    XServer(ConnectionHandle connection, int screenNumber);

    ConnectionHandle connection_;
    int screenNumber_;
    xcb_window_t root_;
};

}
