/// A connection of our own beside Qt's, for what is done in every frame. Qt reads its connection in
/// a thread, which each answer there wakes up before the thread that waits for it; here there is
/// nobody else. Requests of the two are carried out in any order.
#pragma once

#include "X11/XcbHandles.hpp"

namespace vireline::x11 {

class X11Connection;

/// Asks the server, with whatever is sent next, to tell once it has carried out all requests before
/// this. Mostly the answer is there by the time that anybody needs it.
class ServerMark {
public:
    explicit ServerMark(xcb_connection_t* connection)
        : connection_(connection), cookie_(xcb_get_input_focus(connection)) {}
    ServerMark(const ServerMark&) = delete;
    ServerMark& operator=(const ServerMark&) = delete;
    ServerMark(ServerMark&&) = delete;
    ServerMark& operator=(ServerMark&&) = delete;
    ~ServerMark();

    /// Returns once it has.
    void await();

private:
    xcb_connection_t* connection_;
    xcb_get_input_focus_cookie_t cookie_;
    bool isAnswered_ = false;
};

class DrawingConnection {
public:
    /// Falls back to Qt's connection, which outlives it, if there can be no other.
    explicit DrawingConnection(const X11Connection& qt);

    [[nodiscard]] xcb_connection_t* get() const noexcept;

    void flush() const;

    /// Returns once the server has carried out everything so far.
    void finish() const;

    /// Forgets what nobody here listens to, such as errors about windows that are gone.
    void discardEvents() const;

private:
    const X11Connection& qt_;
    OwnConnection own_;
};

}
