/// A connection to sway's IPC socket. Requests can wait for their reply, or be sent and answered
/// through the event loop.
#pragma once

#include "Compositors/Sway/SwayMessages.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Result.hpp"

#include <sys/types.h>

#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vireline::wayland {

class SwayConnection : private NonCopyable {
public:
    /// Null if there is no such socket, or if sway does not accept connections.
    [[nodiscard]] static std::unique_ptr<SwayConnection> open(const std::string& path);

    /// The path if that process listens there, or if the processes cannot be compared; otherwise
    /// empty. SWAYSOCK may be another session's, such as in a terminal that outlived its session.
    [[nodiscard]] static std::string socketOf(const std::string& path, pid_t compositor);

    ~SwayConnection();

    /// The process at the other end; 0 if unknown.
    [[nodiscard]] pid_t peer() const;

    /// Sends a request and waits up to `seconds` for its reply, discarding events. The connection
    /// cannot be used after an error. Not to be used after `listen`.
    [[nodiscard]] Result<std::string> request(SwayMessageType type, std::string_view text,
                                              double seconds);

    /// From now on, calls `onMessage` for every reply and event. Needs the event loop.
    void listen(std::function<void(const SwayMessage&)> onMessage);

    /// Sends a request, as soon as sway accepts it. Needs `listen`.
    void send(SwayMessageType type, std::string_view text);

private:
    explicit SwayConnection(int socket) : socket_(socket) {}

    /// Writes as much as the socket takes; false if it is broken.
    bool write();
    /// Reads what has arrived; false if the socket is broken or sway has closed it.
    bool read();
    void deliver();
    void flush();
    void stop();

    int socket_;
    std::string outgoing_;
    SwayMessageReader reader_;
    std::function<void(const SwayMessage&)> onMessage_;
    std::unique_ptr<QSocketNotifier> readable_;
    std::unique_ptr<QSocketNotifier> writable_;
};

}
