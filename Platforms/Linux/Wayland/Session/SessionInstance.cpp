#include "Session/SessionInstance.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vireline::wayland {
namespace {

/// The message that a further start sends to the running instance.
constexpr std::string_view showSettings = "show settings 1";

/// How often a further start tries to reach an instance that has just taken the lock, and how long
/// it waits in between.
constexpr int attempts = 40;
constexpr int attemptMilliseconds = 25;

/// The compositor's socket may have any path. In the runtime folder it also has a short name, under
/// which it is the same compositor; elsewhere a hash keeps our own socket's path short enough.
std::string nameOf(const std::filesystem::path& runtimeFolder,
                   const std::filesystem::path& display) {
    if (!display.has_parent_path() || display.parent_path() == runtimeFolder)
        return display.filename();
    constexpr std::uint64_t start = 14695981039346656037U;
    constexpr std::uint64_t prime = 1099511628211U;
    std::uint64_t hash = start;
    for (const char letter : display.native())
        hash = (hash ^ static_cast<unsigned char>(letter)) * prime;
    return std::to_string(hash);
}

std::filesystem::path fileFor(const std::filesystem::path& runtimeFolder,
                              const std::filesystem::path& display, const char* ending) {
    return runtimeFolder / ("vireline-" + nameOf(runtimeFolder, display) + ending);
}

/// nullopt if the path is too long for a socket.
std::optional<sockaddr_un> addressOf(const std::filesystem::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.native().size() >= sizeof address.sun_path)
        return std::nullopt;
    std::ranges::copy(path.native(), address.sun_path);
    return address;
}

int datagramSocket() {
    return socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
}

/// -1 if that fails. Only the holder of the lock may call this, since it replaces the socket that
/// an earlier instance has left.
int listenAt(const std::filesystem::path& path) {
    const auto address = addressOf(path);
    if (!address)
        return -1;
    const int socket = datagramSocket();
    if (socket < 0)
        return -1;
    unlink(path.c_str());
    if (bind(socket, reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0)
        return socket;
    close(socket);
    return -1;
}

void askForSettings(const std::filesystem::path& path) {
    const auto address = addressOf(path);
    if (!address)
        return;
    const int socket = datagramSocket();
    if (socket < 0)
        return;
    for (int i = 0; i < attempts; ++i) {
        const auto sent = sendto(socket, showSettings.data(), showSettings.size(), MSG_NOSIGNAL,
                                 reinterpret_cast<const sockaddr*>(&*address), sizeof *address);
        // A full queue has enough of these.
        if (sent >= 0 || (errno != ENOENT && errno != ECONNREFUSED))
            break;
        poll(nullptr, 0, attemptMilliseconds);
    }
    close(socket);
}

}

std::unique_ptr<SessionInstance> SessionInstance::claim(const std::filesystem::path& runtimeFolder,
                                                        const std::string& display) {
    const auto lockFile = fileFor(runtimeFolder, display, ".lock");
    const auto socketFile = fileFor(runtimeFolder, display, ".socket");
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's interface
    const int lock =
        runtimeFolder.empty()
            ? -1
            : open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (lock < 0)
        return std::unique_ptr<SessionInstance>{new SessionInstance{-1, -1}};
    if (flock(lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        close(lock);
        askForSettings(socketFile);
        return nullptr;
    }
    return std::unique_ptr<SessionInstance>{new SessionInstance{lock, listenAt(socketFile)}};
}

/// The files stay: removing a locked file would let two starts lock two files of the same name.
SessionInstance::~SessionInstance() {
    notifier_.reset();
    for (const int file : {socket_, lock_}) {
        if (file >= 0)
            close(file);
    }
}

Subscription SessionInstance::observe(std::function<void()> handler) {
    auto subscription = starts_.add(std::move(handler));
    if (!notifier_ && socket_ >= 0) {
        notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { read(); });
    }
    return subscription;
}

/// Any number of starts in a row shows the settings once.
void SessionInstance::read() {
    bool isAsked = false;
    std::array<char, 64> bytes{};
    while (true) {
        const auto size = recv(socket_, bytes.data(), bytes.size(), 0);
        if (size < 0)
            break;
        isAsked |= std::string_view{bytes.data(), static_cast<std::size_t>(size)} == showSettings;
    }
    if (isAsked)
        starts_.notify();
}

}
