/// A second connection besides Qt's, for what is done in every frame. Qt reads its connection in a
/// thread, which every reply would wake up before the waiting thread; this one has a single reader.
/// Requests on the two connections are not ordered relative to each other.
#pragma once

#include "Connection/XcbHandles.hpp"
#include "Foundation/NonCopyable.hpp"

namespace vireline::x11 {

class X11Connection;

/// Asks the server to report when it has processed all earlier requests. Usually the reply has
/// already arrived when it is needed.
class ServerMark : private NonCopyable {
public:
    explicit ServerMark(xcb_connection_t* connection)
        : connection_(connection), cookie_(xcb_get_input_focus(connection)) {}
    ~ServerMark();

    /// Blocks until the server has processed them.
    void await();

private:
    xcb_connection_t* connection_;
    xcb_get_input_focus_cookie_t cookie_;
    bool isAnswered_ = false;
};

class DrawingConnection {
public:
    /// Falls back to Qt's connection, which must outlive this object, if no second one can be
    /// opened.
    explicit DrawingConnection(const X11Connection& qt);

    [[nodiscard]] xcb_connection_t* get() const noexcept;

    void flush() const;

    /// Blocks until the server has processed all requests so far.
    void finish() const;

    /// Drops unused events, such as errors about destroyed windows.
    void discardEvents() const;

private:
    const X11Connection& qt_;
    ConnectionHandle own_;
};

}
