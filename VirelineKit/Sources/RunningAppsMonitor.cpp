#include "Sources/RunningAppsMonitor.hpp"

namespace vireline {

std::vector<AppRef> RunningAppsMonitor::current() const {
    std::vector<AppRef> list;
    for (const RunningApplication& app : applications_.running()) {
        if (app.activationPolicy == ActivationPolicy::regular && app.bundleID && app.bundleURL)
            list.push_back(
                {*app.bundleID, app.localizedName.value_or(*app.bundleID), *app.bundleURL});
    }
    return list;
}

void RunningAppsMonitor::start() {
    using Announced = std::optional<RunningApplication>;
    const auto settles = lifetime_.guard([this](const Announced& app) { settled(app); });
    observers_ = {
        applications_.observeWillLaunch(
            lifetime_.guard([this](const Announced& app) { launching(app); })),
        applications_.observeDidLaunch(settles),
        applications_.observeDidTerminate(settles),
    };
    if (onChange)
        onChange(current());
}

std::optional<std::string>
RunningAppsMonitor::bundleIDFrom(const std::optional<RunningApplication>& announced) {
    return announced ? announced->bundleID : std::nullopt;
}

void RunningAppsMonitor::launching(const std::optional<RunningApplication>& app) const {
    if (const auto bundleID = bundleIDFrom(app); bundleID && onLaunching)
        onLaunching(*bundleID);
}

void RunningAppsMonitor::settled(const std::optional<RunningApplication>& app) const {
    if (const auto bundleID = bundleIDFrom(app); bundleID && onSettled)
        onSettled(*bundleID);
    if (onChange)
        onChange(current());
}

namespace TemporaryPinnedSource {

std::vector<AppRef> load(const ApplicationCatalog& catalog) {
    std::vector<AppRef> apps;
    for (const std::string& bundleID : catalog.wellKnownBundleIDs()) {
        if (const auto url = catalog.urlForBundleID(bundleID))
            apps.push_back({bundleID, catalog.displayName(*url), *url});
    }
    return apps;
}

}
}
