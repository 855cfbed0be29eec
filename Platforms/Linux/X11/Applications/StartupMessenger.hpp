/// Sends and receives startup notification messages, which are broadcast through the root window.
#pragma once

#include "Applications/Launching/StartupMessage.hpp"
#include "Applications/Launching/StartupNotices.hpp"
#include "Connection/X11Connection.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace vireline::x11 {

class StartupMessenger final : public xdg::StartupNotices, private NonCopyable {
public:
    explicit StartupMessenger(X11Connection& connection);
    ~StartupMessenger() override;

    /// The time of the user's last click stands at its end, as the protocol requires.
    [[nodiscard]] std::string nextStartupID() override;
    void broadcast(xdg::StartupMessage message) override;
    [[nodiscard]] Subscription
    observe(std::function<void(const xdg::StartupMessage&)> handler) override {
        return messages_.add(std::move(handler));
    }

private:
    void handle(const xcb_generic_event_t& event);

    X11Connection& connection_;
    /// An unmapped window that identifies our chunks as belonging together.
    xcb_window_t sender_;
    xdg::StartupMessageAssembler assembler_;
    CallbackList<const xdg::StartupMessage&> messages_;
    std::uint64_t launches_ = 0;
    Subscription events_;
    Lifetime lifetime_;
};

}
