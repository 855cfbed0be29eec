/// The program's main connection to the X server, shared with Qt: atoms, properties read with a
/// size limit, and the events that Qt receives. A window may be destroyed between any two calls;
/// queries about it then simply have no result.
#pragma once

#include "Connection/XcbHandles.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vireline::x11 {

class X11Connection : private QAbstractNativeEventFilter, private NonCopyable {
public:
    /// Limit on properties that are read, because any client can set one of any length.
    static constexpr std::uint32_t maximumPropertyBytes = 4U << 20U;

    /// Uses the connection of the running QApplication, which must use the xcb plugin.
    X11Connection();
    ~X11Connection() override;

    [[nodiscard]] xcb_connection_t* get() const noexcept { return connection_; }
    [[nodiscard]] xcb_window_t root() const noexcept { return root_; }
    /// Major opcode of the XInput extension, which identifies its events; 0 if it is not available.
    [[nodiscard]] std::uint8_t inputExtension() const noexcept { return inputExtension_; }
    [[nodiscard]] int screenNumber() const noexcept { return screenNumber_; }

    /// One round trip for a name that is not cached.
    [[nodiscard]] xcb_atom_t atom(std::string_view name) const;
    /// Caches many atoms in one round trip.
    void intern(std::span<const std::string_view> names) const;
    [[nodiscard]] std::string atomName(xcb_atom_t atom) const;

    /// The 32-bit items of a property of this type; empty if it is missing or of another type.
    [[nodiscard]] std::vector<std::uint32_t> items(xcb_window_t window, std::string_view property,
                                                   xcb_atom_t type) const;
    /// The raw bytes of a text property (STRING or UTF8_STRING).
    [[nodiscard]] std::optional<std::string> text(xcb_window_t window,
                                                  std::string_view property) const;
    /// The bytes of a property of this type with 8-bit items; empty if it is missing or of another
    /// type.
    [[nodiscard]] std::string bytes(xcb_window_t window, std::string_view property,
                                    std::string_view type) const;
    [[nodiscard]] std::vector<xcb_atom_t> atoms(xcb_window_t window,
                                                std::string_view property) const;
    [[nodiscard]] std::vector<xcb_window_t> windows(xcb_window_t window,
                                                    std::string_view property) const;

    void setItems(xcb_window_t window, std::string_view property, xcb_atom_t type,
                  std::span<const std::uint32_t> values) const;
    void setText(xcb_window_t window, std::string_view property, std::string_view text) const;

    /// Adds events to this client's selection for a window, keeping those that Qt selected.
    void selectInput(xcb_window_t window, std::uint32_t eventMask) const;
    /// As above, for many windows in one round trip.
    void selectInput(std::span<const xcb_window_t> windows, std::uint32_t eventMask) const;
    /// Removes events that `selectInput` added, unless another part of this program needs them.
    void deselectInput(xcb_window_t window, std::uint32_t eventMask) const;

    /// Reports every window that is created, destroyed, moved or restacked on the root window, for
    /// as long as a subscription exists. A window that is being dragged reports every step.
    [[nodiscard]] Subscription watchTopLevels() const;

    /// Whether this program created the window; it need not exist any more.
    [[nodiscard]] bool isOwn(xcb_window_t window) const noexcept;

    /// Whether a window manager is running; asks the server.
    [[nodiscard]] bool isManaged() const;

    /// Sends a client message about `window` to the root window, as EWMH requires.
    void sendToRoot(xcb_window_t window, std::string_view message,
                    std::span<const std::uint32_t> data) const;
    /// Sends a client message to the client that owns `window`.
    void sendToWindow(xcb_window_t window, std::string_view message,
                      std::span<const std::uint32_t> data) const;

    void flush() const;
    /// Blocks until the server has processed all requests so far.
    void finish() const;

    /// Server time of the user's last button or key press in one of our windows; 0, which means
    /// "now", before the first.
    [[nodiscard]] xcb_timestamp_t userTime() const noexcept { return userTime_; }

    /// Receives every event before Qt does. The response type still has its high bit set for sent
    /// events; mask it with 0x7f.
    [[nodiscard]] Subscription observe(std::function<void(const xcb_generic_event_t&)> handler);

private:
    void send(xcb_window_t destination, std::uint32_t eventMask, xcb_window_t window,
              std::string_view message, std::span<const std::uint32_t> data) const;
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

    xcb_connection_t* connection_;
    int screenNumber_ = 0;
    xcb_window_t root_;
    std::uint8_t inputExtension_;
    xcb_timestamp_t userTime_ = XCB_CURRENT_TIME;
    mutable std::unordered_map<std::string, xcb_atom_t> atoms_;
    mutable std::weak_ptr<void> topLevels_;
    CallbackList<const xcb_generic_event_t&> events_;
};

}
