/// The source of a drag, as far as the X server sees it: it does not grab the pointer, and can be
/// as slow, silent and wrong as a test wants.
#pragma once

#include "VirtualDesktop/Screen/XClient.hpp"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vireline::desktop {

class DragSource {
public:
    struct Status {
        bool accepts = false;
        std::string action;

        bool operator==(const Status&) const = default;
    };

    explicit DragSource(const std::string& display);

    /// How it responds to requests for its content.
    enum class Answer { content, inPieces, nothing, refusal, numbers, vanished };

    [[nodiscard]] const XClient& client() const noexcept { return client_; }

    /// Announces that it is now the drag source.
    void own(xcb_timestamp_t time);
    void enter(xcb_window_t target, std::uint32_t version = 5);
    void move(PixelPoint root, std::string_view action = "XdndActionCopy");
    void leave();
    void drop();

    /// Handles the pending messages; returns whether there were any.
    bool work();

    /// The content by format.
    std::map<std::string, std::string> contents;
    Answer answer = Answer::content;
    std::size_t pieceBytes = 1000;
    /// The actions that it offers.
    std::vector<std::string> actions;

    std::vector<Status> statuses;
    /// The statuses received since the last call.
    [[nodiscard]] std::vector<Status> takeStatuses() { return std::exchange(statuses, {}); }
    /// Set when the target reports that the drop is finished.
    std::optional<Status> finished;
    /// How often the content was requested.
    int requests = 0;

private:
    /// Content that is sent in chunks.
    struct Pieces {
        xcb_window_t requestor = XCB_NONE;
        xcb_atom_t property = XCB_ATOM_NONE;
        xcb_atom_t target = XCB_ATOM_NONE;
        std::string rest;
        bool isOver = false;
    };

    void send(std::string_view type, const std::vector<std::uint32_t>& data) const;
    void serve(const xcb_selection_request_event_t& request);
    void sendPiece();
    void hear(const xcb_client_message_event_t& message);
    [[nodiscard]] std::string nameOf(xcb_atom_t atom) const;

    XClient client_;
    xcb_window_t window_;
    xcb_window_t target_ = XCB_NONE;
    std::optional<Pieces> pieces_;
};

}
