/// Ensures one running instance per user and X screen by owning an X selection. The server releases
/// the selection when its owner exits, even after a crash.
#pragma once

#include "Connection/XServer.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Toolkit/SecondStarts.hpp"

#include <QSocketNotifier>
#include <memory>

namespace vireline::x11 {

class SingleInstance final : public xdg::SecondStarts, private NonCopyable {
public:
    /// Makes this process the running instance. Returns null if there is one already, which has
    /// then been asked to show its settings. Needs no event loop. If the X server dies meanwhile,
    /// this process also becomes the instance.
    [[nodiscard]] static std::unique_ptr<SingleInstance> claim(XServer server);

    /// Claims that arrived before the first observer are delivered to it. Needs the application
    /// object.
    [[nodiscard]] Subscription observe(std::function<void()> handler) override;

private:
    SingleInstance(XServer server, xcb_window_t window, xcb_atom_t claim);

    void listen();
    void readEvents();
    void refuse(const xcb_selection_request_event_t& request) const;
    [[nodiscard]] bool isClaim(const xcb_client_message_event_t& message) const;

    XServer server_;
    /// Owns the selection and receives other starts' messages.
    xcb_window_t window_;
    /// Message type of other starts' messages.
    xcb_atom_t claim_;
    CallbackList<> claims_;
    /// Destroyed before the connection whose descriptor it watches.
    std::unique_ptr<QSocketNotifier> notifier_;
};

}
