/// Announces launches to all programs, and hears of theirs.
#pragma once

#include "Applications/Launching/StartupMessage.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>
#include <string>

namespace vireline::xdg {

/// What a launched program is given so that its first window may come to the front. Empty texts are
/// not passed on.
struct LaunchPass {
    /// The value of DESKTOP_STARTUP_ID.
    std::string startupID;
    /// The value of XDG_ACTIVATION_TOKEN.
    std::string activationToken;

    bool operator==(const LaunchPass&) const = default;
};

class StartupNotices {
public:
    virtual ~StartupNotices() = default;

    /// Identifies a launch that the user has just requested: unique among all programs and earlier
    /// runs.
    [[nodiscard]] virtual std::string nextStartupID() = 0;

    /// Calls `done` once with the pass for the program that this launch starts, either at once or
    /// after the window system has issued one, which takes no more than half a second. Where
    /// nothing issues any, the ID is the pass.
    virtual void makePass(const std::string& startupID,
                          const std::function<void(LaunchPass)>& done) {
        done({.startupID = startupID, .activationToken = {}});
    }

    /// Sends to every program, including this one.
    virtual void broadcast(StartupMessage message) = 0;

    /// Calls `handler` for every complete and valid message.
    [[nodiscard]] virtual Subscription
    observe(std::function<void(const StartupMessage&)> handler) = 0;
};

}
