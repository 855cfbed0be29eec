/// Taps in the path of the pointer's events, where the hardware's events enter the session.
#pragma once

#include "Platform/PointerTap.hpp"

namespace vireline::macos {

class EventTaps final : public PointerTaps {
public:
    [[nodiscard]] bool needPermission() const override { return true; }

    /// Fails without the permission for Accessibility. Each tap has a thread of its own, so that
    /// the pointer never waits for the main one.
    [[nodiscard]] Result<std::unique_ptr<PointerTap>> create(PointerRule rule,
                                                             Disabled onDisabled) override;
};

}
