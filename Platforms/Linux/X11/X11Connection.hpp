/// The program's one connection to the X server, shared with Qt: atoms, properties read within
/// bounds, and the events that Qt passes by. A window may vanish between any two calls; what is
/// asked of it then simply has no answer.
#pragma once

#include "Foundation/CallbackList.hpp"

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

struct Freed {
    void operator()(void* memory) const noexcept {
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): xcb hands out malloc'ed memory
        std::free(memory);
    }
};

/// A reply or an error of an xcb call.
template <class T>
using Owned = std::unique_ptr<T, Freed>;

class X11Connection : private QAbstractNativeEventFilter {
public:
    /// Longest property that is read; anybody can set one of any length.
    static constexpr std::uint32_t maximumPropertyBytes = 4U << 20U;

    /// Takes the connection of the running QApplication, which must use the xcb plugin.
    X11Connection();
    ~X11Connection() override;
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    X11Connection(X11Connection&&) = delete;
    X11Connection& operator=(X11Connection&&) = delete;

    [[nodiscard]] xcb_connection_t* get() const noexcept { return connection_; }
    [[nodiscard]] xcb_window_t root() const noexcept { return root_; }
    /// The major opcode of the input devices' events; 0 where there are none.
    [[nodiscard]] std::uint8_t inputExtension() const noexcept { return inputExtension_; }
    [[nodiscard]] int screenNumber() const noexcept { return screenNumber_; }

    /// One round trip for a name that was not asked for before.
    [[nodiscard]] xcb_atom_t atom(std::string_view name) const;
    /// Learns many names in one round trip.
    void intern(std::span<const std::string_view> names) const;
    [[nodiscard]] std::string atomName(xcb_atom_t atom) const;

    /// The 32-bit items of a property of this type; empty when it is missing or of another kind.
    [[nodiscard]] std::vector<std::uint32_t> words(xcb_window_t window, std::string_view property,
                                                   xcb_atom_t type) const;
    /// The bytes of a text property (STRING or UTF8_STRING), as they are.
    [[nodiscard]] std::optional<std::string> text(xcb_window_t window,
                                                  std::string_view property) const;
    /// The bytes of a property of this type with items of 8 bits; empty when it is missing or of
    /// another kind.
    [[nodiscard]] std::string bytes(xcb_window_t window, std::string_view property,
                                    std::string_view type) const;
    [[nodiscard]] std::vector<xcb_atom_t> atoms(xcb_window_t window,
                                                std::string_view property) const;
    [[nodiscard]] std::vector<xcb_window_t> windows(xcb_window_t window,
                                                    std::string_view property) const;

    void setWords(xcb_window_t window, std::string_view property, xcb_atom_t type,
                  std::span<const std::uint32_t> values) const;
    void setText(xcb_window_t window, std::string_view property, std::string_view text) const;

    /// Adds to what this client hears of a window; Qt's own choice stays.
    void selectInput(xcb_window_t window, std::uint32_t eventMask) const;
    /// The same for many windows in one round trip.
    void selectInput(std::span<const xcb_window_t> windows, std::uint32_t eventMask) const;
    /// Takes away again what `selectInput` added and nobody else here needs.
    void deselectInput(xcb_window_t window, std::uint32_t eventMask) const;

    /// Hears of every window that comes, goes, moves or is restacked on the root window, for as
    /// long as somebody keeps such a subscription. A window that is dragged tells of every step.
    [[nodiscard]] Subscription watchTopLevels() const;

    /// Whether this program made the window; it need not exist any more.
    [[nodiscard]] bool isOwn(xcb_window_t window) const noexcept;

    /// Whether a window manager decides about windows; asks the server.
    [[nodiscard]] bool isManaged() const;

    /// Sends a client message about `window` to the root window, as EWMH asks for.
    void sendToRoot(xcb_window_t window, std::string_view message,
                    std::span<const std::uint32_t> data) const;
    /// Sends a client message to the client that made `window`.
    void sendToWindow(xcb_window_t window, std::string_view message,
                      std::span<const std::uint32_t> data) const;

    void flush() const;
    /// Returns once the server has carried out everything so far.
    void finish() const;

    /// The server's time of the user's last press of a button or key in one of our windows; 0,
    /// which stands for now, before the first.
    [[nodiscard]] xcb_timestamp_t userTime() const noexcept { return userTime_; }

    /// Hears every event, before Qt does. The response type's high bit (sent events) is stripped by
    /// nobody; mask it with 0x7f.
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
