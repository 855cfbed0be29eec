/// Reads many properties in one round trip: send all requests, then read the replies. A destroyed
/// window, a missing property and one of another type all yield no value.
#pragma once

#include "Connection/SideConnection.hpp"
#include "Connection/X11Connection.hpp"
#include "Foundation/NonCopyable.hpp"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace vireline::x11 {

class PropertyBatch : private NonCopyable {
public:
    explicit PropertyBatch(const X11Connection& connection)
        : connection_(connection), server_(connection.get()) {}
    /// Uses the side connection; replies that miss the deadline count as missing.
    PropertyBatch(const X11Connection& connection, SideConnection& side,
                  SideConnection::Deadline deadline)
        : connection_(connection), server_(side.get()), side_(&side), deadline_(deadline) {}
    ~PropertyBatch();

    /// Requests at most the first `maximumBytes` and returns the request's index, counted from 0.
    /// All requests must be sent before the first reply is read.
    std::size_t ask(xcb_window_t window, std::string_view property, std::size_t maximumBytes);

    /// The 32-bit items of a property of this type. Valid for the lifetime of this object.
    [[nodiscard]] std::span<const std::uint32_t> items(std::size_t request, xcb_atom_t type);
    /// The first of `items`.
    [[nodiscard]] std::optional<std::uint32_t> firstItem(std::size_t request, xcb_atom_t type);
    /// The bytes of a property of format 8 and any type. Valid for the lifetime of this object.
    [[nodiscard]] std::string_view bytes(std::size_t request);
    /// Whether the window existed when the request was processed.
    [[nodiscard]] bool hasWindow(std::size_t request);

private:
    const xcb_get_property_reply_t* reply(std::size_t request);

    /// Used for its atoms.
    const X11Connection& connection_;
    xcb_connection_t* server_;
    SideConnection* side_ = nullptr;
    SideConnection::Deadline deadline_;
    std::vector<xcb_get_property_cookie_t> cookies_;
    /// Replies read so far.
    std::vector<Owned<xcb_get_property_reply_t>> replies_;
};

}
