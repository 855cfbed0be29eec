/// The user's input: a real pointer and keyboard, through XTest.
#pragma once

#include "VirtualDesktop/Screen/PixelGeometry.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <xcb/xproto.h>

namespace vireline::desktop {

class Pointer {
public:
    explicit Pointer(const XClient& client) : client_(client) {}

    enum class Button : std::uint8_t {
        primary = 1,
        middle = 2,
        secondary = 3,
        wheelUp = 4,
        wheelDown = 5,
    };

    void moveTo(PixelPoint place) const;
    void press(Button button) const;
    void release(Button button) const;
    void click(PixelPoint place, Button button = Button::primary) const;
    [[nodiscard]] PixelPoint position() const;

private:
    const XClient& client_;
};

class Keyboard {
public:
    explicit Keyboard(const XClient& client) : client_(client) {}

    static constexpr xcb_keysym_t escape = 0xff1b;
    static constexpr xcb_keysym_t enter = 0xff0d;
    static constexpr xcb_keysym_t tab = 0xff09;
    static constexpr xcb_keysym_t space = 0x20;
    static constexpr xcb_keysym_t home = 0xff50;
    static constexpr xcb_keysym_t up = 0xff52;
    static constexpr xcb_keysym_t right = 0xff53;
    static constexpr xcb_keysym_t down = 0xff54;
    static constexpr xcb_keysym_t end = 0xff57;
    static constexpr xcb_keysym_t control = 0xffe3;
    static constexpr xcb_keysym_t shift = 0xffe1;
    static constexpr xcb_keysym_t alt = 0xffe9;
    static constexpr xcb_keysym_t super = 0xffeb;

    /// Presses the key for `symbol` and keeps it down.
    void press(xcb_keysym_t symbol) const;
    void release(xcb_keysym_t symbol) const;

    /// Presses and releases the key for `symbol`.
    void type(xcb_keysym_t symbol) const;
    /// As above, while Control is held.
    void typeWithControl(xcb_keysym_t symbol) const;
    void typeWithControlAndShift(xcb_keysym_t symbol) const;
    /// Whether a client has grabbed the keyboard.
    [[nodiscard]] bool isHeld() const;

private:
    const XClient& client_;
};

}
