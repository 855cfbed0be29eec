/// The displays, and everything that may have changed what they show.
#pragma once

#include "Platform/Screens.hpp"

namespace vireline::macos {

class MacScreens final : public Screens {
public:
    [[nodiscard]] std::vector<PlatformScreen> screens() const override;

    /// Also announces the end of sleep of the computer or its displays, the start of the displays'
    /// sleep, the switch to and from another user's session, and a new main display: after any of
    /// them the displays may be others, or show what is out of date.
    [[nodiscard]] Subscription observeParameters(std::function<void()> handler) override;
};

}
