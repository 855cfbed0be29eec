/// Tells which ordinary apps run, and when an app begins to launch and has settled. Beside it, the
/// well-known apps that stand in when there is nothing to mirror.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Model/DockItem.hpp"
#include "Platform/ApplicationCatalog.hpp"
#include "Platform/RunningApplications.hpp"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

/// Keeps no list of its own: every report is read afresh.
class RunningAppsMonitor {
public:
    explicit RunningAppsMonitor(RunningApplications& applications) : applications_(applications) {}
    RunningAppsMonitor(const RunningAppsMonitor&) = delete;
    RunningAppsMonitor& operator=(const RunningAppsMonitor&) = delete;
    RunningAppsMonitor(RunningAppsMonitor&&) = delete;
    RunningAppsMonitor& operator=(RunningAppsMonitor&&) = delete;
    ~RunningAppsMonitor() = default;

    /// The ordinary apps in the system's order, each running instance once. Apps without an
    /// identifier or a place on the disk are left out.
    [[nodiscard]] std::vector<AppRef> current() const;

    /// Reports the list and goes on reporting. The callbacks are set before.
    void start();

    /// The identifier of the app that an announcement concerns, if it says.
    [[nodiscard]] static std::optional<std::string>
    bundleIDFrom(const std::optional<RunningApplication>& announced);

    /// Receives the running list.
    std::function<void(const std::vector<AppRef>&)> onChange;
    /// Receive the identifier of any app, ordinary or not, that is about to launch, and of one that
    /// has finished launching or has ended.
    std::function<void(const std::string&)> onLaunching;
    std::function<void(const std::string&)> onSettled;

private:
    void launching(const std::optional<RunningApplication>& app) const;
    void settled(const std::optional<RunningApplication>& app) const;

    RunningApplications& applications_;
    /// Of launches begun, launches finished, and ends.
    std::array<Subscription, 3> observers_;
    Lifetime lifetime_;
};

namespace TemporaryPinnedSource {

/// The installed ones of the platform's well-known apps, in their order.
[[nodiscard]] std::vector<AppRef> load(const ApplicationCatalog& catalog);

}
}
