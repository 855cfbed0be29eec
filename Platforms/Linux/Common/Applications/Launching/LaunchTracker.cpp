#include "Applications/Launching/LaunchTracker.hpp"

#include <algorithm>
#include <utility>

namespace vireline::xdg {

void LaunchTracker::begin(const std::string& startupID, const IdentifiedApp& app, bool isOurs) {
    if (find(startupID) != nullptr)
        return;
    if (launches_.size() >= maximumLaunches) {
        fail(launches_.front().startupID);
        launches_.erase(launches_.begin());
    }
    Launch& launch = launches_.emplace_back();
    launch.startupID = startupID;
    launch.app = app;
    launch.isOurs = isOurs;
    launch.began = runLoop_.now();
    launch.timeout =
        runLoop_.after(timeoutSeconds, lifetime_.guard([this, startupID] { fail(startupID); }));
    notify({startupID, app, State::began});
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
    notify({startupID, launch->app, State::finished});
}

bool LaunchTracker::fail(std::string startupID) {
    Launch* launch = find(startupID);
    if (launch == nullptr || !launch->isPending)
        return false;
    launch->isPending = false;
    launch->hasFailed = true;
    launch->timeout.reset();
    notify({std::move(startupID), launch->app, State::failed});
    return true;
}

void LaunchTracker::appShowed(const std::string& bundleID, std::int32_t processIdentifier) {
    std::vector<Change> ended;
    for (Launch& launch : launches_) {
        if (launch.app.bundleID != bundleID)
            continue;
        if (!launch.owner)
            launch.owner = processIdentifier;
        if (launch.isPending)
            ended.push_back({launch.startupID, launch.app, State::showedWindow});
        launch.isPending = false;
        launch.timeout.reset();
    }
    std::ranges::for_each(ended, [this](const Change& change) { notify(change); });
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

void LaunchTracker::notify(const Change& change) const {
    if (onChange)
        onChange(change);
}

}
