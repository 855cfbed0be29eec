/// The running applications, with notifications of launches and exits.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vireline {

enum class ActivationPolicy {
    regular,    ///< an ordinary app, with a place in the dock
    accessory,  ///< has windows but no place in the dock
    prohibited, ///< no user interface
};

/// A snapshot of one running application.
struct RunningApplication {
    std::optional<std::string> bundleID;
    std::optional<FileURL> bundleURL;
    std::optional<std::string> localizedName;
    ActivationPolicy activationPolicy = ActivationPolicy::regular;
    /// 0 when unknown.
    std::int32_t processIdentifier = 0;
    /// Whether it is the frontmost app.
    bool isActive = false;

    bool operator==(const RunningApplication&) const = default;
};

/// Which apps want the user's attention, by bundle identifier.
struct AppAttention {
    /// Apps with a window that demands attention.
    std::set<std::string> demanding = {};
    /// The frontmost app, which has the user's attention.
    std::optional<std::string> active = {};

    bool operator==(const AppAttention&) const = default;
};

class RunningApplications {
public:
    /// Receives the app concerned; nullopt if the system did not say which.
    using Handler = std::function<void(const std::optional<RunningApplication>&)>;

    virtual ~RunningApplications() = default;

    /// All running applications, in the system's order.
    [[nodiscard]] virtual std::vector<RunningApplication> running() const = 0;

    /// The instances of one app, in the system's order.
    [[nodiscard]] virtual std::vector<RunningApplication>
    instances(const std::string& bundleID) const = 0;

    /// Hides all windows of the app, until it is activated again.
    virtual void hide(const RunningApplication& app) = 0;

    /// Asks the app to quit; it may refuse or ask the user first.
    virtual void terminate(const RunningApplication& app) = 0;

    /// Empty if the system does not report it.
    [[nodiscard]] virtual AppAttention attention() const { return {}; }
    /// Calls `handler` when the result of `attention` has changed.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): implementations keep it
    [[nodiscard]] virtual Subscription observeAttention(std::function<void()> /*handler*/) {
        return {};
    }

    [[nodiscard]] virtual Subscription observeWillLaunch(Handler handler) = 0;
    [[nodiscard]] virtual Subscription observeDidLaunch(Handler handler) = 0;
    [[nodiscard]] virtual Subscription observeDidTerminate(Handler handler) = 0;
};

}
