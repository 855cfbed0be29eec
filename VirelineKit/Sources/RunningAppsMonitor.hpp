/// Reports which ordinary apps are running, and when an app starts and finishes launching. Also has
/// the list of well-known apps that is used if there is nothing to mirror.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"
#include "Platform/Applications/RunningApplications.hpp"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

/// Stateless: the list of running apps is read again for every report.
class RunningAppsMonitor : private NonCopyable {
public:
    explicit RunningAppsMonitor(RunningApplications& applications) : applications_(applications) {}

    /// The running ordinary apps in the system's order, one entry for each instance. Apps without
    /// an identifier or a bundle URL are omitted.
    [[nodiscard]] std::vector<AppRef> current() const;

    /// Reports the current list, and from then on every change. Set the callbacks first.
    void start();

    /// The identifier of the announced app, if known.
    [[nodiscard]] static std::optional<std::string>
    bundleIDFrom(const std::optional<RunningApplication>& announced);

    /// Called with the list of running apps.
    std::function<void(const std::vector<AppRef>&)> onChange;
    /// Called with the identifier of any app, ordinary or not, when it is about to launch, and when
    /// it has finished launching or has exited.
    std::function<void(const std::string&)> onLaunching;
    std::function<void(const std::string&)> onSettled;

private:
    void launching(const std::optional<RunningApplication>& app) const;
    void settled(const std::optional<RunningApplication>& app) const;

    RunningApplications& applications_;
    /// Observers of launches, finished launches and exits.
    std::array<Subscription, 3> observers_;
    Lifetime lifetime_;
};

namespace TemporaryPinnedSource {

/// The platform's well-known apps that are installed, in their order.
[[nodiscard]] std::vector<AppRef> load(const ApplicationCatalog& catalog);

}
}
