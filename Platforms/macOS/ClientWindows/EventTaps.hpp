/// Pointer taps, at the point where hardware events enter the session.
#pragma once

#include "Platform/Desktop/PointerTap.hpp"

namespace vireline::macos {

class EventTaps final : public PointerTaps {
public:
    [[nodiscard]] bool needPermission() const override { return true; }

    /// Fails without the Accessibility permission. Each tap has its own thread, so that the pointer
    /// never waits for the main thread.
    [[nodiscard]] Result<std::unique_ptr<PointerTap>> create(PointerRule rule,
                                                             Disabled onDisabled) override;
};

}
