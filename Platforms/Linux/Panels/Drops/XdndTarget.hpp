/// One dock's end of the drag-and-drop protocol of the X Window System (XDND, version 5). Qt's own
/// would wait for the other program whenever it asks what is dragged, and never hear that it died.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Platform/PanelWindow.hpp"
#include "X11/SelectionTransfer.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class XdndTarget {
public:
    /// The point of the hosted view at a pixel of the root window.
    using ViewPoint = std::function<Point(int x, int y)>;

    /// For a window that exists for as long as this does. A drag that is over it when this ends
    /// leaves it.
    XdndTarget(X11Connection& connection, xcb_window_t window, PanelWindowListener& listener,
               ViewPoint viewPoint);
    XdndTarget(const XdndTarget&) = delete;
    XdndTarget& operator=(const XdndTarget&) = delete;
    XdndTarget(XdndTarget&&) = delete;
    XdndTarget& operator=(XdndTarget&&) = delete;
    ~XdndTarget();

    /// Takes a message to the window if it is one of the protocol's, which is then for nobody else.
    bool handle(const xcb_client_message_event_t& message);

    /// Takes it that what is dragged over the window has left.
    void leave();

private:
    /// How far it is known what is dragged.
    enum class Content {
        unasked,
        asked,
        /// The listener knows; the one state in which there is something to drop.
        told,
        refused,
    };

    struct Drag {
        xcb_window_t source = XCB_NONE;
        /// Of `DroppedText::formats`; empty if the source offers none of them.
        std::string_view format;
        /// What the source lets the target choose from, if it does.
        std::vector<xcb_atom_t> actions;
        Content content = Content::unasked;
        int x = 0;
        int y = 0;
        xcb_atom_t action = XCB_ATOM_NONE;
        /// The source waits for an answer to its last position, or to its drop.
        bool owesStatus = false;
        bool owesFinish = false;
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
