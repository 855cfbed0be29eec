#include "VirtualDesktop/Screen/Pointer.hpp"

#include <xcb/xtest.h>

#include <stdexcept>

namespace vireline::desktop {
namespace {

/// The server waits this long before an event, in milliseconds. Without it several events fall
/// within one millisecond, as from no real hand, and Xvfb now and then reports a release at the
/// place where the pointer was before its last move.
constexpr std::uint32_t pauseBefore = 1;

void fake(const XClient& client, std::uint8_t event, std::uint8_t detail, PixelPoint place = {}) {
    xcb_test_fake_input(client.get(), event, detail, pauseBefore, client.root(),
                        static_cast<std::int16_t>(place.x), static_cast<std::int16_t>(place.y), 0);
    client.sync();
}

xcb_keycode_t keycode(const XClient& client, xcb_keysym_t symbol) {
    const auto* setup = xcb_get_setup(client.get());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const Owned<xcb_get_keyboard_mapping_reply_t> reply{xcb_get_keyboard_mapping_reply(
        client.get(), xcb_get_keyboard_mapping(client.get(), setup->min_keycode, count), nullptr)};
    if (reply) {
        const auto* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
        for (std::size_t key = 0; key < count; ++key) {
            if (symbols[key * reply->keysyms_per_keycode] == symbol)
                return static_cast<xcb_keycode_t>(setup->min_keycode + key);
        }
    }
    throw std::runtime_error{"the keyboard has no such key"};
}

}

void Pointer::moveTo(PixelPoint place) const {
    fake(client_, XCB_MOTION_NOTIFY, 0, place);
}

void Pointer::press(Button button) const {
    fake(client_, XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
}

void Pointer::release(Button button) const {
    fake(client_, XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

void Pointer::click(PixelPoint place, Button button) const {
    moveTo(place);
    press(button);
    release(button);
}

PixelPoint Pointer::position() const {
    const Owned<xcb_query_pointer_reply_t> reply{xcb_query_pointer_reply(
        client_.get(), xcb_query_pointer(client_.get(), client_.root()), nullptr)};
    if (!reply)
        return {};
    return {reply->root_x, reply->root_y};
}

void Keyboard::press(xcb_keysym_t symbol) const {
    fake(client_, XCB_KEY_PRESS, keycode(client_, symbol));
}

void Keyboard::release(xcb_keysym_t symbol) const {
    fake(client_, XCB_KEY_RELEASE, keycode(client_, symbol));
}

void Keyboard::type(xcb_keysym_t symbol) const {
    press(symbol);
    release(symbol);
}

void Keyboard::typeWithControl(xcb_keysym_t symbol) const {
    press(control);
    type(symbol);
    release(control);
}

void Keyboard::typeWithControlAndShift(xcb_keysym_t symbol) const {
    const auto modifier = keycode(client_, shift);
    fake(client_, XCB_KEY_PRESS, modifier);
    typeWithControl(symbol);
    fake(client_, XCB_KEY_RELEASE, modifier);
}

bool Keyboard::isHeld() const {
    auto* const x = client_.get();
    // Otherwise, a program that grabs the keyboard in between would be refused.
    xcb_grab_server(x);
    const auto asked = xcb_grab_keyboard(x, 0, client_.root(), XCB_CURRENT_TIME,
                                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_keyboard(x, XCB_CURRENT_TIME);
    xcb_ungrab_server(x);
    const Owned<xcb_grab_keyboard_reply_t> grab{xcb_grab_keyboard_reply(x, asked, nullptr)};
    return grab && grab->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

}
