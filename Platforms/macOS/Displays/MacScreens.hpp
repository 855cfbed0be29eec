/// The displays, and everything that may have changed what they show.
#pragma once

#include "Platform/Screens.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace vireline::macos {

/// What the system calls the display with this number, such as "Studio Display"; it numbers
/// displays that would have the same name. Nothing if there is no such display.
[[nodiscard]] std::optional<std::string> displayName(std::uint32_t displayID);

class MacScreens final : public Screens {
public:
    [[nodiscard]] std::vector<PlatformScreen> screens() const override;

    /// Also announces the end of sleep of the computer or its displays, the start of the displays'
    /// sleep, the switch to and from another user's session, and a new main display: after any of
    /// them the displays may be others, or show what is out of date.
    [[nodiscard]] Subscription observeParameters(std::function<void()> handler) override;
};

}
