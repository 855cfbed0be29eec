/// The launches under way, ours and other programs', from their announcement until something shows
/// that they ended.
#pragma once

#include "Applications/Identity/AppIdentity.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/RunLoop.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline::x11 {

class LaunchTracker {
public:
    /// A launch that shows nothing for this long is taken to have ended.
    static constexpr double patienceSeconds = 15;
    /// Launches that are remembered, the newest, for the windows that may still bear their IDs.
    static constexpr std::size_t maximumLaunches = 64;

    explicit LaunchTracker(RunLoop& runLoop) : runLoop_(runLoop) {}
    LaunchTracker(const LaunchTracker&) = delete;
    LaunchTracker& operator=(const LaunchTracker&) = delete;
    LaunchTracker(LaunchTracker&&) = delete;
    LaunchTracker& operator=(LaunchTracker&&) = delete;
    ~LaunchTracker() = default;

    /// `isOurs`: only by our own launches windows are told apart. An ID that is known already
    /// changes nothing.
    void begin(const std::string& startupID, const IdentifiedApp& app, bool isOurs);

    /// Whether the app is on its way: a launch of it, anybody's, is not over yet; or one of ours
    /// began less than `pairSeconds` ago and has neither failed nor shown a window.
    [[nodiscard]] bool isUnderWay(const std::string& bundleID, double pairSeconds) const;

    /// The starter or the app itself says that the launch is over.
    void finish(const std::string& startupID);

    /// The launch came to nothing. False when it was over before.
    bool fail(const std::string& startupID);

    /// The first window of an app is there, owned by this process. Ends all its launches.
    void appShowed(const std::string& bundleID, std::int32_t processIdentifier);

    /// The app that a window's startup ID was made for, if the launch was ours. The ID stays in the
    /// environment of everything that the app starts: once the app showed itself, it counts for
    /// windows of that same process only.
    [[nodiscard]] std::optional<IdentifiedApp> launchedApp(const std::string& startupID,
                                                           std::int32_t processIdentifier) const;

    std::function<void(const IdentifiedApp&)> onWillLaunch;
    std::function<void(const IdentifiedApp&)> onFinished;
    std::function<void(const IdentifiedApp&)> onFailed;
    /// The launch with this ID, one of ours, is over; not called when `finish` said so.
    std::function<void(const std::string& startupID)> onOurEnd;

private:
    struct Launch {
        std::string startupID;
        IdentifiedApp app;
        bool isOurs = false;
        bool isPending = true;
        bool hasFailed = false;
        /// On the run loop's clock.
        double began = 0;
        /// Of the app's first window; nothing before there is one.
        std::optional<std::int32_t> owner;
        Timer patience;
    };

    [[nodiscard]] Launch* find(const std::string& startupID);

    RunLoop& runLoop_;
    /// Oldest first.
    std::vector<Launch> launches_;
    Lifetime lifetime_;
};

}
