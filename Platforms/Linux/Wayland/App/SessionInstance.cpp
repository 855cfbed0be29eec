#include "App/SessionInstance.hpp"

#include "Displays/ScreenLayout.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <optional>
#include <thread>
#include <utility>

namespace vireline::wayland {
namespace {

using xdg::FileDescriptor;

std::optional<sockaddr_un> addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return std::nullopt;
    std::ranges::copy(path, std::begin(address.sun_path));
    return address;
}

FileDescriptor newSocket() {
    return FileDescriptor{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)};
}

/// Safe while the lock is held: a socket that is still there was left by a crash.
FileDescriptor listenAt(const std::string& path) {
    constexpr int waiting = 16;
    auto socket = newSocket();
    const auto address = addressOf(path);
    unlink(path.c_str());
    if (!address ||
        bind(socket.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0 ||
        listen(socket.get(), waiting) != 0)
        return {};
    return socket;
}

/// The other instance may have the lock, but not yet the socket.
void tell(const std::string& path) {
    using namespace std::chrono_literals;
    constexpr int attempts = 100;
    const auto address = addressOf(path);
    for (int i = 0; address && i < attempts; ++i) {
        const auto socket = newSocket();
        if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) ==
            0)
            return;
        std::this_thread::sleep_for(10ms);
    }
}

}

std::unique_ptr<SessionInstance> SessionInstance::claim(const std::string& folder,
                                                        const std::string& session) {
    // Short, because a socket's path must be.
    const std::string path =
        folder + "/vireline-" + std::to_string(ScreenLayout::displayID(session));
    constexpr mode_t onlyUser = 0600;
    FileDescriptor lock{
        open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, onlyUser)};
    if (lock && flock(lock.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        tell(path);
        return nullptr;
    }
    FileDescriptor socket = lock ? listenAt(path) : FileDescriptor{};
    return std::unique_ptr<SessionInstance>{
        new SessionInstance{std::move(lock), std::move(socket)}};
}

SessionInstance::SessionInstance(FileDescriptor lock, FileDescriptor socket)
    : lock_(std::move(lock)), socket_(std::move(socket)) {}

Subscription SessionInstance::observe(std::function<void()> handler) {
    auto subscription = starts_.add(std::move(handler));
    if (!notifier_ && socket_) {
        notifier_ = std::make_unique<QSocketNotifier>(socket_.get(), QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { accept(); });
    }
    return subscription;
}

/// A connection is the whole message.
void SessionInstance::accept() {
    bool isAny = false;
    while (const FileDescriptor start{::accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC)})
        isAny = true;
    if (isAny)
        starts_.notify();
}

}
