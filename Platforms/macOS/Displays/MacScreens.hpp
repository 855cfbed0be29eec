/// The displays, and notifications of everything that may have changed them.
#pragma once

#include "Platform/Desktop/Screens.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace vireline::macos {

/// The system's name of the display with this number, such as "Studio Display". The system numbers
/// displays of the same name. nullopt if there is no such display.
[[nodiscard]] std::optional<std::string> displayName(std::uint32_t displayID);

class MacScreens final : public Screens {
public:
    [[nodiscard]] std::vector<PlatformScreen> screens() const override;

    /// Also calls `handler` when the computer or its displays wake up, when the displays go to
    /// sleep, when the user's session is switched, and when another display becomes the main one.
    /// After any of these the displays may have changed, or show outdated contents.
    [[nodiscard]] Subscription observeParameters(std::function<void()> handler) override;
};

}
