/// Sends and hears startup notification messages, which go through the root window.
#pragma once

#include "Applications/Launching/StartupMessage.hpp"
#include "Foundation/Lifetime.hpp"
#include "X11/X11Connection.hpp"

#include <functional>

namespace vireline::x11 {

class StartupMessenger {
public:
    explicit StartupMessenger(X11Connection& connection);
    StartupMessenger(const StartupMessenger&) = delete;
    StartupMessenger& operator=(const StartupMessenger&) = delete;
    StartupMessenger(StartupMessenger&&) = delete;
    StartupMessenger& operator=(StartupMessenger&&) = delete;
    ~StartupMessenger();

    /// Tells every program on the display, this one included.
    void broadcast(const StartupMessage& message);

    /// Hears every message that is whole and valid.
    std::function<void(const StartupMessage&)> onMessage;

private:
    void handle(const xcb_generic_event_t& event);

    X11Connection& connection_;
    /// Marks the pieces of our messages as belonging together; never shown.
    xcb_window_t sender_;
    StartupMessageAssembler assembler_;
    Subscription events_;
    Lifetime lifetime_;
};

}
