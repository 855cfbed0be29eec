#include "ClientWindows/WindowMover.hpp"

#include "Foundation/DevLog.hpp"
#include "Platform/RunLoop.hpp"

#include <algorithm>

namespace vireline {
namespace {

constexpr double retryInterval = 0.4;
/// How long a program is not called after a call to it has timed out, since every such call blocks
/// the docks.
constexpr double hungPause = 5;

const ScreenSnapshot* find(std::span<const ScreenSnapshot> screens, std::uint32_t display) {
    const auto found = std::ranges::find(screens, display, &ScreenSnapshot::id);
    return found == screens.end() ? nullptr : &*found;
}

int errorNumber(const Result<void>& outcome) {
    return outcome ? 0 : outcome.error().code;
}

std::string describeFill(const Result<void>& move, const Result<void>& resize,
                         const Result<void>& settle) {
    if (move && resize && settle)
        return "ok";
    return "move=" + std::to_string(errorNumber(move)) +
           " resize=" + std::to_string(errorNumber(resize)) +
           " settle=" + std::to_string(errorNumber(settle));
}

}

void WindowMover::expect(const std::string& bundleID, std::uint32_t display,
                         const PlacementMode& mode) {
    if (!accessibility_.isTrusted())
        return;
    pending_[bundleID] = {.display = display, .mode = mode};
    DevLog::write("placement armed for " + bundleID + " on #" + std::to_string(display));
    retryPending();
    startRetryTimer();
}

bool WindowMover::appHasWindow(const RunningApplication& app, std::uint32_t display,
                               std::span<const ScreenSnapshot> screens) {
    if (!accessibility_.isTrusted())
        return true;
    const ElementHandle window = mainWindow(app);
    const auto place = window ? frame(*window) : std::nullopt;
    if (!place)
        return true;
    return WindowPlacement::displayContaining({place->x, place->y}, place->size(), screens) ==
           display;
}

bool WindowMover::summonMainWindow(const RunningApplication& app, std::uint32_t display,
                                   std::span<const ScreenSnapshot> screens) {
    if (!accessibility_.isTrusted())
        return false;
    const ScreenSnapshot* const target = find(screens, display);
    if (target == nullptr)
        return false;
    const ElementHandle window = mainWindow(app);
    const auto place = window ? frame(*window) : std::nullopt;
    return place && center(app, *window, place->size(), *target, screens);
}

bool WindowMover::center(const RunningApplication& app, AccessibilityElement& window, Size size,
                         const ScreenSnapshot& target, std::span<const ScreenSnapshot> screens) {
    const auto outcome = accessibility_.setPosition(
        window, WindowPlacement::centeredAXPosition(size, target, screens));
    DevLog::write("summon pid " + std::to_string(app.processIdentifier) + " to display #" +
                  std::to_string(target.id) + ": " +
                  (outcome ? "ok" : "AXError " + std::to_string(outcome.error().code)));
    return outcome.has_value();
}

std::vector<OpenWindow> WindowMover::openWindows(const RunningApplication& app) {
    if (isHung(app.processIdentifier))
        return {};
    const double asked = runLoop_.now();
    const ElementHandle element =
        accessibility_.application(app.processIdentifier, app.bundleID.value_or(""));
    accessibility_.setMessagingTimeout(*element, axTimeout);
    auto windows = accessibility_.openWindows(*element);
    if (!windows && timedOut(asked))
        hungUntil_[app.processIdentifier] = runLoop_.now() + hungPause;
    return windows ? *std::move(windows) : std::vector<OpenWindow>{};
}

void WindowMover::showWindow(const RunningApplication& app, const OpenWindow& window,
                             std::uint32_t display, std::span<const ScreenSnapshot> screens,
                             bool summons) {
    AccessibilityElement& element = *window.element;
    accessibility_.setMessagingTimeout(element, axTimeout);
    const ScreenSnapshot* const target = find(screens, display);
    if (summons && target != nullptr && accessibility_.isTrusted()) {
        const auto place = frame(element);
        const bool isElsewhere =
            place && WindowPlacement::displayContaining({place->x, place->y}, place->size(),
                                                        screens) != display;
        if (isElsewhere)
            center(app, element, place->size(), *target, screens);
    }
    if (const auto shown = accessibility_.bringForward(element); !shown)
        DevLog::write("window not shown: " + shown.error().description);
}

bool WindowMover::fillMainWindow(const RunningApplication& app, std::uint32_t display,
                                 std::span<const ScreenSnapshot> screens,
                                 const FillContext& context) {
    if (!accessibility_.isTrusted())
        return false;
    const ScreenSnapshot* const target = find(screens, display);
    if (target == nullptr)
        return false;
    const ElementHandle window = mainWindow(app);
    if (!window)
        return false;
    const auto [position, size] = WindowPlacement::fillFrame(*target, screens, context);
    const auto move = accessibility_.setPosition(*window, position);
    const auto resize = accessibility_.setSize(*window, size);
    // Resizing may have moved the window.
    const auto settle = accessibility_.setPosition(*window, position);
    DevLog::write("fill pid " + std::to_string(app.processIdentifier) + " on #" +
                  std::to_string(display) + ": " + describeFill(move, resize, settle));
    return move && resize && settle;
}

/// Whether a call that started at `asked` has taken as long as its timeout.
bool WindowMover::timedOut(double asked) const {
    constexpr double clockTolerance = 0.05;
    return runLoop_.now() - asked >= static_cast<double>(axTimeout) - clockTolerance;
}

bool WindowMover::isHung(std::int32_t processIdentifier) const {
    const auto found = hungUntil_.find(processIdentifier);
    return found != hungUntil_.end() && runLoop_.now() < found->second;
}

ElementHandle WindowMover::mainWindow(const RunningApplication& app) {
    if (isHung(app.processIdentifier))
        return nullptr;
    hungUntil_.erase(app.processIdentifier);
    const double asked = runLoop_.now();
    const ElementHandle element =
        accessibility_.application(app.processIdentifier, app.bundleID.value_or(""));
    accessibility_.setMessagingTimeout(*element, axTimeout);
    ElementHandle found;
    if (auto main = accessibility_.mainWindow(*element)) {
        found = *std::move(main);
    } else if (timedOut(asked)) {
        hungUntil_[app.processIdentifier] = runLoop_.now() + hungPause;
        return nullptr;
    }
    if (!found) {
        const auto windows = accessibility_.windows(*element);
        if (!windows)
            return nullptr;
        const auto first = std::ranges::find_if(
            *windows, [](const ElementHandle& window) { return window != nullptr; });
        if (first == windows->end())
            return nullptr;
        found = *first;
    }
    accessibility_.setMessagingTimeout(*found, axTimeout);
    return found;
}

std::optional<Rect> WindowMover::frame(AccessibilityElement& window) {
    const auto position = accessibility_.position(window);
    const auto size = accessibility_.size(window);
    if (!position || !size)
        return std::nullopt;
    return Rect{position->x, position->y, size->width, size->height};
}

bool WindowMover::place(const RunningApplication& app, const Pending& placement,
                        std::span<const ScreenSnapshot> screens) {
    if (const auto* const context = std::get_if<FillContext>(&placement.mode))
        return fillMainWindow(app, placement.display, screens, *context);
    return summonMainWindow(app, placement.display, screens);
}

bool WindowMover::tryToPlace(const std::string& bundleID, const Pending& placement,
                             std::span<const ScreenSnapshot> screens) {
    const auto instances = applications_.instances(bundleID);
    return !instances.empty() && place(instances.front(), placement, screens);
}

void WindowMover::retryPending() {
    if (pending_.empty()) {
        retryTimer_.reset();
        return;
    }
    const auto screens = ScreenSnapshot::current(screens_);
    for (auto entry = pending_.begin(); entry != pending_.end();) {
        auto& [bundleID, placement] = *entry;
        if (tryToPlace(bundleID, placement, screens)) {
            DevLog::write("placement done for " + bundleID);
            entry = pending_.erase(entry);
        } else if (placement.attempts >= maxAttempts) {
            DevLog::write("placement gave up on " + bundleID);
            entry = pending_.erase(entry);
        } else {
            ++placement.attempts;
            ++entry;
        }
    }
}

void WindowMover::startRetryTimer() {
    if (retryTimer_ || pending_.empty())
        return;
    retryTimer_ = runLoop_.every(retryInterval, lifetime_.guard([this] { retryPending(); }));
}

}
