/// Transfers a selection's content from the program that owns it (ICCCM section 2.4),
/// asynchronously: the owner may be slow, send it in chunks, or exit.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <xcb/xcb.h>

#include <QTimer>
#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace vireline::x11 {

class X11Connection;

class SelectionTransfer : private NonCopyable {
public:
    struct Request {
        /// A window whose property changes this client receives.
        xcb_window_t requestor = XCB_NONE;
        xcb_atom_t selection = XCB_ATOM_NONE;
        /// The requested format.
        xcb_atom_t target = XCB_ATOM_NONE;
        /// A property on the requestor that no other transfer uses.
        xcb_atom_t property = XCB_ATOM_NONE;
        xcb_timestamp_t time = XCB_CURRENT_TIME;
    };

    /// Called once; may destroy the transfer.
    using Done = std::function<void(Result<std::string>)>;

    /// Enough for tens of thousands of URLs.
    static constexpr std::size_t maximumBytes = 16U << 20U;
    static constexpr std::chrono::seconds defaultTimeout{5};

    /// Fails if the owner does not respond for `timeout`.
    SelectionTransfer(X11Connection& connection, const Request& request, Done done,
                      std::chrono::milliseconds timeout = defaultTimeout);

private:
    void handle(const xcb_generic_event_t& event);
    void answered(const xcb_selection_notify_event_t& answer);
    void takePiece();
    void fail(const char* reason);
    void finish(Result<std::string> outcome);

    X11Connection& connection_;
    Request request_;
    Done done_;
    bool comesInPieces_ = false;
    std::string content_;
    QTimer limit_;
    Subscription events_;
};

}
