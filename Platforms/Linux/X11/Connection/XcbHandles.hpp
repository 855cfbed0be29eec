/// What every kind of connection to the X server needs.
#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace vireline::x11 {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const noexcept { xcb_disconnect(connection); }
};

/// A connection of our own. Even one that failed is an object that must be given back.
using ConnectionHandle = std::unique_ptr<xcb_connection_t, Disconnect>;

struct Freed {
    void operator()(void* memory) const noexcept {
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): xcb hands out malloc'ed memory
        std::free(memory);
    }
};

/// Owns a reply or an error of an xcb call.
template <class T>
using Owned = std::unique_ptr<T, Freed>;

/// The event's type without the flag of events that another client has sent.
[[nodiscard]] constexpr std::uint8_t eventType(const xcb_generic_event_t& event) noexcept {
    return event.response_type & 0x7fU;
}

/// The event as one of the kind that its type says it is.
template <class Event>
[[nodiscard]] const Event& as(const xcb_generic_event_t& event) noexcept {
    static_assert(sizeof(Event) <= sizeof event);
    return reinterpret_cast<const Event&>(event);
}

/// Sends an event, padded to the size that the protocol gives all events.
template <class Event>
void sendEvent(xcb_connection_t* connection, xcb_window_t destination, std::uint32_t mask,
               const Event& event) {
    constexpr std::size_t size = 32;
    static_assert(sizeof event <= size);
    std::array<char, size> bytes{};
    std::memcpy(bytes.data(), &event, sizeof event);
    xcb_send_event(connection, 0, destination, mask, bytes.data());
}

/// XCB_NONE if the selection has no owner, or the server is gone.
[[nodiscard]] inline xcb_window_t selectionOwner(xcb_connection_t* connection,
                                                 xcb_atom_t selection) {
    const Owned<xcb_get_selection_owner_reply_t> reply{xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, selection), nullptr)};
    return reply ? reply->owner : xcb_window_t{XCB_NONE};
}

/// The root window of a screen by its number.
[[nodiscard]] inline xcb_window_t rootOf(xcb_connection_t* connection, int screenNumber) {
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screenNumber > 0 && screen.rem > 1; --screenNumber)
        xcb_screen_next(&screen);
    return screen.data->root;
}

}
