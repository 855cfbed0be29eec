#include "Connection/XServer.hpp"

#include "Connection/X11Connection.hpp"

#include <cstdlib>

namespace vireline::x11 {
namespace {

PlatformError noServer(int code) {
    const char* display = std::getenv("DISPLAY");
    const std::string name = display == nullptr ? "" : display;
    return {code, name.empty() ? "no X display: DISPLAY is not set"
                               : "no X display: cannot connect to \"" + name + "\""};
}

}

XServer::XServer(ConnectionHandle connection, int screenNumber)
    : connection_(std::move(connection))
    , screenNumber_(screenNumber)
    , root_(rootOf(connection_.get(), screenNumber)) {}

Result<XServer> XServer::connect() {
    int screenNumber = 0;
    // xcb_connect returns an object even on failure, and it has to be freed.
    ConnectionHandle connection{xcb_connect(nullptr, &screenNumber)};
    if (const int code = xcb_connection_has_error(connection.get()); code != 0)
        return std::unexpected{noServer(code)};
    return XServer{std::move(connection), screenNumber};
}

xcb_atom_t XServer::atom(const std::string& name) const {
    const auto cookie =
        xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Owned<xcb_intern_atom_reply_t> reply{
        xcb_intern_atom_reply(connection(), cookie, nullptr)};
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}
