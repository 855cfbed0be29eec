/// Sends and receives startup notification messages, which are broadcast through the root window.
#pragma once

#include "Applications/Launching/StartupMessage.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "X11/X11Connection.hpp"

#include <functional>

namespace vireline::x11 {

class StartupMessenger : private NonCopyable {
public:
    explicit StartupMessenger(X11Connection& connection);
    ~StartupMessenger();

    /// Sends to every program on the display, including this one.
    void broadcast(const StartupMessage& message);

    /// Called for every complete and valid message.
    std::function<void(const StartupMessage&)> onMessage;

private:
    void handle(const xcb_generic_event_t& event);

    X11Connection& connection_;
    /// An unmapped window that identifies our chunks as belonging together.
    xcb_window_t sender_;
    StartupMessageAssembler assembler_;
    Subscription events_;
    Lifetime lifetime_;
};

}
