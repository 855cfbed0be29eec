#include "Compositors/Sway/SwayConnection.hpp"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

namespace vireline::wayland {
namespace {

using Clock = std::chrono::steady_clock;

std::unexpected<PlatformError> failed(int code, const char* description) {
    return std::unexpected{PlatformError{code, description}};
}

/// Whether the socket is ready before the deadline.
bool waitFor(int socket, short events, Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd waiting{.fd = socket, .events = events, .revents = 0};
    return poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0))) > 0;
}

bool isTemporary(int error) {
    return error == EAGAIN || error == EINTR;
}

}

std::unique_ptr<SwayConnection> SwayConnection::open(const std::string& path) {
    sockaddr_un address{};
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return nullptr;
    address.sun_family = AF_UNIX;
    std::ranges::copy(path, address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return nullptr;
    std::unique_ptr<SwayConnection> connection{new SwayConnection{socket}};
    const bool isConnected =
        connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    return isConnected ? std::move(connection) : nullptr;
}

std::string SwayConnection::socketOf(const std::string& path, pid_t compositor) {
    const auto connection = open(path);
    if (!connection)
        return {};
    const pid_t listener = connection->peer();
    return listener == compositor || listener == 0 || compositor == 0 ? path : std::string{};
}

SwayConnection::~SwayConnection() {
    stop();
    close(socket_);
}

pid_t SwayConnection::peer() const {
    ucred credentials{};
    socklen_t size = sizeof credentials;
    const bool isKnown = getsockopt(socket_, SOL_SOCKET, SO_PEERCRED, &credentials, &size) == 0;
    return isKnown ? credentials.pid : 0;
}

Result<std::string> SwayConnection::request(SwayMessageType type, std::string_view text,
                                            double seconds) {
    const auto deadline = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                             std::chrono::duration<double>{std::max(seconds, 0.0)});
    outgoing_ += SwayMessages::bytes(type, text);
    while (true) {
        if (!write())
            return failed(EPIPE, "sway has closed the connection");
        while (const auto message = reader_.next()) {
            if (message->type == type)
                return message->text;
        }
        const bool isSending = !outgoing_.empty();
        if (!waitFor(socket_, static_cast<short>(isSending ? POLLIN | POLLOUT : POLLIN), deadline))
            return failed(ETIMEDOUT, "sway does not answer");
        if (!read())
            return failed(EPIPE, "sway has closed the connection");
    }
}

void SwayConnection::listen(std::function<void(const SwayMessage&)> onMessage) {
    onMessage_ = std::move(onMessage);
    readable_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
    writable_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Write);
    writable_->setEnabled(false);
    QObject::connect(readable_.get(), &QSocketNotifier::activated, [this] {
        const bool isOpen = read();
        deliver();
        if (!isOpen)
            stop();
    });
    QObject::connect(writable_.get(), &QSocketNotifier::activated, [this] { flush(); });
}

void SwayConnection::send(SwayMessageType type, std::string_view text) {
    outgoing_ += SwayMessages::bytes(type, text);
    flush();
}

void SwayConnection::flush() {
    if (write())
        writable_->setEnabled(!outgoing_.empty());
    else
        stop();
}

bool SwayConnection::write() {
    while (!outgoing_.empty()) {
        const auto written = ::send(socket_, outgoing_.data(), outgoing_.size(), MSG_NOSIGNAL);
        if (written < 0)
            return isTemporary(errno);
        outgoing_.erase(0, static_cast<std::size_t>(written));
    }
    return true;
}

bool SwayConnection::read() {
    std::array<char, 65536> bytes{};
    while (true) {
        const auto count = recv(socket_, bytes.data(), bytes.size(), 0);
        if (count < 0)
            return isTemporary(errno);
        if (count == 0)
            return false;
        reader_.add({bytes.data(), static_cast<std::size_t>(count)});
    }
}

void SwayConnection::deliver() {
    while (const auto message = reader_.next())
        onMessage_(*message);
    if (reader_.isBroken())
        stop();
}

void SwayConnection::stop() {
    // Not deleted: it may be the one that is being handled.
    for (const auto& notifier : {readable_.get(), writable_.get()}) {
        if (notifier != nullptr)
            notifier->setEnabled(false);
    }
}

}
