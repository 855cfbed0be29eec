/// Pending launches, ours and other programs', from their announcement until they are known to have
/// ended.
#pragma once

#include "Applications/Identity/AppIdentity.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/RunLoop.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline::xdg {

class LaunchTracker : private NonCopyable {
public:
    /// A launch that shows no window within this time counts as failed.
    static constexpr double timeoutSeconds = 15;
    /// Limit on remembered launches, newest kept: later windows may still carry their startup IDs.
    static constexpr std::size_t maximumLaunches = 64;

    enum class State { began, finished, failed, showedWindow };

    struct Change {
        std::string startupID;
        IdentifiedApp app;
        State state = State::began;
    };

    explicit LaunchTracker(RunLoop& runLoop) : runLoop_(runLoop) {}

    /// `isOurs`: only our own launches are used to identify windows. Does nothing if the ID is
    /// already known.
    void begin(const std::string& startupID, const IdentifiedApp& app, bool isOurs);

    /// Whether the app is being launched: a launch of it, by any program, has not ended; or one of
    /// ours began less than `doubleClickSeconds` ago and has neither failed nor shown a window.
    [[nodiscard]] bool isUnderWay(const std::string& bundleID, double doubleClickSeconds) const;

    /// The launcher or the app itself reports that the launch has ended.
    void finish(const std::string& startupID);

    /// The launch failed. Returns false if it had already ended.
    bool fail(std::string startupID);

    /// The app's first window, owned by this process, has appeared. Ends all launches of the app.
    void appShowed(const std::string& bundleID, std::int32_t processIdentifier);

    /// The app for which a window's startup ID was created, if the launch was ours. The ID stays in
    /// the environment of everything that the app starts, so once the app has shown a window, the
    /// ID counts only for windows of that same process.
    [[nodiscard]] std::optional<IdentifiedApp> launchedApp(const std::string& startupID,
                                                           std::int32_t processIdentifier) const;

    /// Called when a launch begins, and once when it ends.
    std::function<void(const Change&)> onChange;

private:
    struct Launch {
        std::string startupID;
        IdentifiedApp app;
        bool isOurs = false;
        bool isPending = true;
        bool hasFailed = false;
        /// When the launch began, on the run loop's clock.
        double began = 0;
        /// The process that owns the app's first window; nullopt until there is one.
        std::optional<std::int32_t> owner;
        Timer timeout;
    };

    [[nodiscard]] Launch* find(const std::string& startupID);
    void notify(const Change& change) const;

    RunLoop& runLoop_;
    /// Oldest first.
    std::vector<Launch> launches_;
    Lifetime lifetime_;
};

}
