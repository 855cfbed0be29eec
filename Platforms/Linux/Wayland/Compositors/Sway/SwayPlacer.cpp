#include "Compositors/Sway/SwayPlacer.hpp"

#include "Compositors/Sway/SwayCommands.hpp"

#include <cerrno>
#include <optional>
#include <utility>

namespace vireline::wayland {
namespace {

constexpr double checkInterval = 0.1;
constexpr int maximumChecks = 5;
/// How long sway may take to answer when nothing waits for it.
constexpr double checkSeconds = 0.1;

std::unexpected<PlatformError> windowIsGone() {
    return std::unexpected{PlatformError{ENOENT, "the window is gone"}};
}

}

SwayPlacer::SwayPlacer(std::string socket, RunLoop& runLoop)
    : socket_(std::move(socket)), runLoop_(runLoop) {}

Result<Rect> SwayPlacer::frame(xdg::WindowID window, double seconds) {
    const auto now = tree(seconds);
    if (!now)
        return std::unexpected{now.error()};
    const SwayWindow* const found = now->window(static_cast<std::int64_t>(window));
    if (found == nullptr)
        return windowIsGone();
    return found->frame;
}

Result<void> SwayPlacer::move(xdg::WindowID window, Point corner, double seconds) {
    if (const auto goal = goals_.find(window);
        goal != goals_.end() && goal->second.frame.origin() != corner)
        goals_.erase(goal);
    return run(window, seconds, [corner](const SwayWindow& now, const SwayTree& tree) {
        return SwayCommands::move(now, corner, tree);
    });
}

Result<void> SwayPlacer::place(xdg::WindowID window, const Rect& frame, double seconds) {
    goals_.erase(window);
    auto outcome = run(window, seconds, [&frame](const SwayWindow& now, const SwayTree& tree) {
        return SwayCommands::place(now, frame, tree);
    });
    if (outcome) {
        goals_[window].frame = frame;
        keep(window);
    }
    return outcome;
}

void SwayPlacer::keep(xdg::WindowID window) {
    goals_[window].next =
        runLoop_.after(checkInterval, lifetime_.guard([this, window] { check(window); }));
}

void SwayPlacer::check(xdg::WindowID window) {
    Goal& goal = goals_[window];
    const auto outcome =
        run(window, checkSeconds, [&goal](const SwayWindow& now, const SwayTree& tree) {
            return now.isFloating ? SwayCommands::place(now, goal.frame, tree) : std::nullopt;
        });
    if (outcome && ++goal.checks < maximumChecks)
        keep(window);
    else
        goals_.erase(window);
}

Result<void> SwayPlacer::run(xdg::WindowID window, double seconds, const Command& command) {
    const auto now = tree(seconds);
    if (!now)
        return std::unexpected{now.error()};
    const SwayWindow* const found = now->window(static_cast<std::int64_t>(window));
    if (found == nullptr)
        return windowIsGone();
    const auto text = command(*found, *now);
    if (!text)
        return {};
    const auto reply = request(SwayMessageType::runCommand, *text, seconds);
    if (!reply)
        return std::unexpected{reply.error()};
    if (!SwayMessages::reportsSuccess(*reply))
        return std::unexpected{PlatformError{EINVAL, "sway refuses: " + *text}};
    return {};
}

SwayConnection* SwayPlacer::connection() {
    if (!connection_)
        connection_ = SwayConnection::open(socket_);
    return connection_.get();
}

Result<std::string> SwayPlacer::request(SwayMessageType type, const std::string& text,
                                        double seconds) {
    if (connection() == nullptr)
        return std::unexpected{PlatformError{ENOTCONN, "sway cannot be reached"}};
    auto reply = connection_->request(type, text, seconds);
    if (!reply)
        connection_.reset();
    return reply;
}

Result<SwayTree> SwayPlacer::tree(double seconds) {
    const auto reply = request(SwayMessageType::getTree, {}, seconds);
    if (!reply)
        return std::unexpected{reply.error()};
    auto tree = SwayTree::parse(*reply);
    if (!tree)
        return std::unexpected{PlatformError{EPROTO, "sway's tree cannot be read"}};
    return *std::move(tree);
}

}
