/// Taps in the path of the pointer's events, where the hardware's events enter the session.
#pragma once

#include "Platform/PointerTap.hpp"

namespace vireline::macos {

class EventTaps final : public PointerTaps {
public:
    /// Fails without the permission for Accessibility. The taps run on the main run loop.
    [[nodiscard]] Result<std::unique_ptr<PointerTap>> create(Callback callback) override;
};

}
