#include "Applications/Launching/LaunchTracker.hpp"

#include <algorithm>

namespace vireline::xdg {

void LaunchTracker::begin(const std::string& startupID, const IdentifiedApp& app, bool isOurs) {
    if (find(startupID) != nullptr)
        return;
    if (launches_.size() >= maximumLaunches) {
        fail(std::string{launches_.front().startupID});
        launches_.erase(launches_.begin());
    }
    Launch& launch = launches_.emplace_back();
    launch.startupID = startupID;
    launch.app = app;
    launch.isOurs = isOurs;
    launch.began = runLoop_.now();
    // A copy of the ID, because `fail` destroys the timer and with it everything captured.
    launch.timeout = runLoop_.after(
        timeoutSeconds, lifetime_.guard([this, startupID] { fail(std::string{startupID}); }));
    if (onWillLaunch)
        onWillLaunch(app);
}

bool LaunchTracker::isUnderWay(const std::string& bundleID, double doubleClickSeconds) const {
    return std::ranges::any_of(launches_, [&](const Launch& launch) {
        if (launch.app.bundleID != bundleID)
            return false;
        // An app may report that it has started before the window manager lists its window.
        const bool mayStillShow = launch.isOurs && !launch.hasFailed && !launch.owner &&
                                  runLoop_.now() - launch.began < doubleClickSeconds;
        return launch.isPending || mayStillShow;
    });
}

void LaunchTracker::finish(const std::string& startupID) {
    Launch* launch = find(startupID);
    if (launch == nullptr || !launch->isPending)
        return;
    launch->isPending = false;
    launch->timeout.reset();
    if (onFinished)
        onFinished(IdentifiedApp{launch->app});
}

bool LaunchTracker::fail(const std::string& startupID) {
    Launch* launch = find(startupID);
    if (launch == nullptr || !launch->isPending)
        return false;
    launch->isPending = false;
    launch->hasFailed = true;
    const bool isOurs = launch->isOurs;
    const IdentifiedApp app = launch->app;
    launch->timeout.reset();
    if (isOurs && onOurEnd)
        onOurEnd(startupID);
    if (onFailed)
        onFailed(app);
    return true;
}

void LaunchTracker::appShowed(const std::string& bundleID, std::int32_t processIdentifier) {
    std::vector<std::string> ended;
    for (Launch& launch : launches_) {
        if (launch.app.bundleID != bundleID)
            continue;
        if (!launch.owner)
            launch.owner = processIdentifier;
        if (launch.isPending && launch.isOurs)
            ended.push_back(launch.startupID);
        launch.isPending = false;
        launch.timeout.reset();
    }
    for (const std::string& startupID : ended) {
        if (onOurEnd)
            onOurEnd(startupID);
    }
}

std::optional<IdentifiedApp> LaunchTracker::launchedApp(const std::string& startupID,
                                                        std::int32_t processIdentifier) const {
    const auto launch = std::ranges::find(launches_, startupID, &Launch::startupID);
    if (startupID.empty() || launch == launches_.end() || !launch->isOurs)
        return std::nullopt;
    if (launch->owner.value_or(processIdentifier) != processIdentifier)
        return std::nullopt;
    return launch->app;
}

LaunchTracker::Launch* LaunchTracker::find(const std::string& startupID) {
    const auto found = std::ranges::find(launches_, startupID, &Launch::startupID);
    return found == launches_.end() ? nullptr : &*found;
}

}
