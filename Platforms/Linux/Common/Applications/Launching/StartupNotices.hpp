/// Announces launches to all programs, and hears of theirs.
#pragma once

#include "Applications/Launching/StartupMessage.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>
#include <string>

namespace vireline::xdg {

class StartupNotices {
public:
    virtual ~StartupNotices() = default;

    /// Identifies a launch that the user has just requested: unique among all programs and earlier
    /// runs. It allows the new window to come to the front.
    [[nodiscard]] virtual std::string nextStartupID() = 0;

    /// Sends to every program, including this one.
    virtual void broadcast(StartupMessage message) = 0;

    /// Calls `handler` for every complete and valid message.
    [[nodiscard]] virtual Subscription
    observe(std::function<void(const StartupMessage&)> handler) = 0;
};

}
