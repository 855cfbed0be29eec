#include "Files/Watching/PathFollower.hpp"

#include "Files/FileDescriptor.hpp"

#include <sys/inotify.h>
#include <sys/stat.h>

#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <deque>
#include <memory>
#include <set>
#include <string_view>
#include <system_error>

namespace vireline::xdg {
namespace {

/// The kernel's own limit for links in one path.
constexpr int maximumLinks = 40;

/// For every component of the path: it is deleted, moved or replaced.
constexpr std::uint32_t selfEvents = IN_DELETE_SELF | IN_MOVE_SELF | IN_DONT_FOLLOW;
/// For the last existing folder, while the next component is missing.
constexpr std::uint32_t arrivalEvents = IN_CREATE | IN_MOVED_TO;
/// For what the path names. For a folder, these concern its entries.
constexpr std::uint32_t contentEvents =
    IN_MODIFY | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
/// A deleted file that is still open elsewhere only reports a change of its link count.
constexpr std::uint32_t linkCountEvents = IN_ATTRIB;

/// Limits the reads per turn, so that a continuous stream of events does not starve the event loop.
constexpr int readsInOneTurn = 8;

using WatchID = int;

std::deque<std::string> components(std::string_view path) {
    std::deque<std::string> names;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (end > 0)
            names.emplace_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return names;
}

/// The target of the link; nullopt if `path` is not a link or no longer exists.
std::optional<std::string> linkText(const std::string& path) {
    std::array<char, PATH_MAX> text{};
    const ssize_t length = ::readlink(path.c_str(), text.data(), text.size());
    if (length < 0)
        return std::nullopt;
    return std::string{text.data(), static_cast<std::size_t>(length)};
}

/// One walk along a path from the root, which watches every component. Each watch is set before the
/// component is examined, so that no change is missed.
class Walk {
public:
    Walk(int inotify, const std::string& path) : inotify_(inotify), ahead_(components(path)) {}

    /// Returns the watch on what the path names; nullopt if it names nothing.
    Result<std::optional<WatchID>> go() {
        while (!ahead_.empty()) {
            const std::string name = std::move(ahead_.front());
            ahead_.pop_front();
            last_ = take(name);
            if (!last_ || !last_->has_value())
                break;
        }
        return last_;
    }

    [[nodiscard]] const std::set<WatchID>& watches() const noexcept { return watches_; }

private:
    /// Steps to `name` in the current folder. Returns the watch there, or nullopt if there is no
    /// such entry.
    Result<std::optional<WatchID>> take(const std::string& name) {
        if (name == ".")
            return last_;
        if (name == "..") {
            folder_ = FileURL::fromPath(folder_).parent().path();
            return last_;
        }
        const std::string entry = folder_ == "/" ? "/" + name : folder_ + "/" + name;
        const std::uint32_t mask =
            ahead_.empty() ? selfEvents | contentEvents | linkCountEvents : selfEvents;
        auto watch = add(entry, mask);
        if (!watch && watch.error().code == ENOENT) {
            watch = add(folder_, selfEvents | arrivalEvents);
            if (watch)
                watch = add(entry, mask);
        }
        // Anything deleted during the walk has left an event in the queue, which triggers another
        // walk.
        if (!watch && (watch.error().code == ENOENT || watch.error().code == ENOTDIR))
            return std::nullopt;
        if (!watch)
            return std::unexpected{watch.error()};
        if (const auto text = linkText(entry)) {
            if (!follow(*text))
                return std::nullopt;
        } else {
            folder_ = entry;
        }
        return *watch;
    }

    /// Inserts the link's target before the remaining components. Returns false for an endless
    /// chain of links.
    bool follow(std::string_view text) {
        if (++links_ > maximumLinks)
            return false;
        if (text.starts_with('/'))
            folder_ = "/";
        const auto names = components(text);
        ahead_.insert(ahead_.begin(), names.begin(), names.end());
        return true;
    }

    Result<WatchID> add(const std::string& path, std::uint32_t mask) {
        const WatchID watch = ::inotify_add_watch(inotify_, path.c_str(), mask);
        if (watch >= 0) {
            watches_.insert(watch);
            return watch;
        }
        const int code = errno;
        // A folder that may be traversed but not read, such as /home on some systems, cannot be
        // watched. The walk continues without a watch on it.
        if (code == EACCES && (mask & contentEvents) == 0 && ::access(path.c_str(), X_OK) == 0)
            return unwatched;
        return std::unexpected{
            PlatformError{code, path + ": " + std::generic_category().message(code)}};
    }

    static constexpr WatchID unwatched = -1;

    int inotify_;
    std::deque<std::string> ahead_;
    std::string folder_ = "/";
    /// The watch of the most recent step.
    Result<std::optional<WatchID>> last_ = unwatched;
    int links_ = 0;
    std::set<WatchID> watches_;
};

class PathFollower {
public:
    PathFollower(const FileURL& url, std::function<void(PathEvents)> handler)
        : path_(url.path())
        , handler_(std::move(handler))
        , inotify_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

    Result<void> start() {
        if (!inotify_) {
            const int code = errno;
            return std::unexpected{PlatformError{code, std::generic_category().message(code)}};
        }
        return walk();
    }

    /// Starts reading events, for as long as `self` lives.
    static void listen(const std::shared_ptr<PathFollower>& self) {
        self->notifier_ =
            std::make_unique<QSocketNotifier>(self->inotify_.get(), QSocketNotifier::Read);
        QObject::connect(self->notifier_.get(), &QSocketNotifier::activated,
                         [weak = std::weak_ptr{self}] {
                             if (const auto follower = weak.lock())
                                 follower->report();
                         });
    }

private:
    /// Updates the watches to match what the path goes through now.
    Result<void> walk() {
        Walk walk{inotify_.get(), path_};
        auto found = walk.go();
        std::ranges::for_each(watches_, [&](WatchID watch) {
            // Fails harmlessly if the kernel has already removed the watch along with its file.
            if (!walk.watches().contains(watch))
                ::inotify_rm_watch(inotify_.get(), watch);
        });
        watches_ = walk.watches();
        named_ = found.value_or(std::nullopt);
        if (!found)
            return std::unexpected{found.error()};
        return {};
    }

    void report() {
        const Pending pending = readPending();
        PathEvents events{.changed = pending.ofContent};
        if (pending.ofPath) {
            // A watch belongs to one inode, and its number is never reused.
            const auto before = named_;
            const bool failed = !walk();
            events.appeared = named_ && named_ != before;
            events.removed = (before && named_ != before) || failed;
        }
        if (events != PathEvents{})
            handler_(events);
    }

    struct Pending {
        bool ofContent = false;
        bool ofPath = false;
    };

    Pending readPending() {
        Pending pending;
        alignas(inotify_event) std::array<char, 16UL * 1024> buffer{};
        for (int reads = 0; reads < readsInOneTurn; ++reads) {
            // clang-tidy takes the weak pointer's lock for a mutex; nothing here blocks.
            // NOLINTNEXTLINE(clang-analyzer-unix.BlockInCriticalSection)
            const ssize_t length = ::read(inotify_.get(), buffer.data(), buffer.size());
            if (length < 0 && errno == EINTR)
                continue;
            if (length <= 0)
                break;
            for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
                inotify_event event{};
                std::memcpy(&event, buffer.data() + at, sizeof event);
                note(event, pending);
                at += sizeof event + event.len;
            }
        }
        return pending;
    }

    void note(const inotify_event& event, Pending& pending) const {
        const bool lost = (event.mask & IN_Q_OVERFLOW) != 0;
        const bool known = watches_.contains(event.wd);
        pending.ofContent |=
            lost || (known && event.wd == named_ && (event.mask & contentEvents) != 0);
        pending.ofPath |=
            lost || (known && (event.wd != named_ || (event.mask & contentEvents) == 0));
    }

    std::string path_;
    std::function<void(PathEvents)> handler_;
    FileDescriptor inotify_;
    /// Declared after the descriptor, because it must be destroyed first.
    std::unique_ptr<QSocketNotifier> notifier_;
    std::set<WatchID> watches_;
    std::optional<WatchID> named_;
};

}

Result<Subscription> followPath(const FileURL& url, std::function<void(PathEvents)> handler) {
    auto follower = std::make_shared<PathFollower>(url, std::move(handler));
    if (auto started = follower->start(); !started)
        return std::unexpected{started.error()};
    PathFollower::listen(follower);
    return Subscription{std::move(follower)};
}

}
