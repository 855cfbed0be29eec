/// One running program a user's screen: whoever owns an X selection is the one. The server frees
/// the selection when its owner goes, however that comes about.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Toolkit/SecondStarts.hpp"
#include "X11/XServer.hpp"

#include <QSocketNotifier>
#include <memory>

namespace vireline::x11 {

class SingleInstance final : public SecondStarts {
public:
    /// Makes this process the one. Null when another one is already: that one has then been asked
    /// to show its settings. Needs no event loop. An X server that dies meanwhile also makes the
    /// caller the one, as there is nobody left to disturb.
    [[nodiscard]] static std::unique_ptr<SingleInstance> claim(XServer server);

    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    SingleInstance(SingleInstance&&) = delete;
    SingleInstance& operator=(SingleInstance&&) = delete;
    ~SingleInstance() override = default;

    /// Claims from before the first observer are kept for it. Needs the application object.
    [[nodiscard]] Subscription observe(std::function<void()> handler) override;

private:
    SingleInstance(XServer server, xcb_window_t window, xcb_atom_t claim);

    void listen();
    void readEvents();
    void refuse(const xcb_selection_request_event_t& request) const;
    [[nodiscard]] bool isClaim(const xcb_client_message_event_t& message) const;

    XServer server_;
    /// Owns the selection and receives the claims.
    xcb_window_t window_;
    /// The type of a claim's message.
    xcb_atom_t claim_;
    CallbackList<> claims_;
    /// Goes before the connection whose descriptor it watches.
    std::unique_ptr<QSocketNotifier> notifier_;
};

}
