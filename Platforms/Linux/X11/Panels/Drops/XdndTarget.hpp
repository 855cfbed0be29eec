/// One dock's side of the X drag-and-drop protocol (XDND, version 5). Qt's implementation blocks
/// when it asks the source for data, and does not notice if the source exits.
#pragma once

#include "Connection/SelectionTransfer.hpp"
#include "Foundation/Geometry.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Platform/PanelWindow.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class XdndTarget : private NonCopyable {
public:
    /// Converts a pixel of the root window to a point in the hosted view.
    using ViewPoint = std::function<Point(int x, int y)>;

    /// The window must outlive this object. Destroying it during a drag counts as the drag leaving.
    XdndTarget(X11Connection& connection, xcb_window_t window, PanelWindowListener& listener,
               ViewPoint viewPoint);
    ~XdndTarget();

    /// Handles a message to the window; returns false if it does not belong to the protocol.
    bool handle(const xcb_client_message_event_t& message);

    /// Treats the drag as having left.
    void leave();

private:
    /// How much is known about the dragged data.
    enum class Content {
        unasked,
        asked,
        /// The listener has been told; the only state in which a drop is accepted.
        told,
        refused,
    };

    struct Drag {
        xcb_window_t source = XCB_NONE;
        /// One of `DroppedText::formats`; empty if the source offers none of them.
        std::string_view format;
        /// The actions that the source offers to choose from, if any.
        std::vector<xcb_atom_t> actions;
        Content content = Content::unasked;
        int x = 0;
        int y = 0;
        xcb_atom_t action = XCB_ATOM_NONE;
        /// The source waits for a reply to its last position, or to its drop.
        bool needsStatus = false;
        bool needsFinish = false;
    };

    void enter(const xcb_client_message_event_t& message);
    void move(Drag& drag, const xcb_client_message_event_t& message);
    void drop(Drag& drag);

    void ask(Drag& drag, xcb_timestamp_t time);
    void answered(Drag& drag, const Result<std::string>& content);
    void sendStatus(Drag& drag);
    void finish(Drag& drag);
    [[nodiscard]] std::string_view bestFormat(const xcb_client_message_event_t& message) const;
    [[nodiscard]] xcb_atom_t chosenAction(const Drag& drag) const;

    X11Connection& connection_;
    xcb_window_t window_;
    PanelWindowListener& listener_;
    ViewPoint viewPoint_;
    std::optional<Drag> drag_;
    std::unique_ptr<SelectionTransfer> transfer_;
    std::size_t transfers_ = 0;
    Subscription sourceEvents_;
};

}
