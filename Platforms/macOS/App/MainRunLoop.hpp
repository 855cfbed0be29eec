/// The kit's clock and timers on the main run loop.
#pragma once

#include "Platform/RunLoop.hpp"

namespace vireline::macos {

/// Timers fire in the common modes, and so also while a menu is open or a control is being dragged.
/// The clock and the timers stand still while the computer sleeps.
class MainRunLoop final : public RunLoop {
public:
    [[nodiscard]] double now() const override;
    [[nodiscard]] Timer after(double seconds, std::function<void()> fire) override;
    [[nodiscard]] Timer every(double seconds, std::function<void()> fire) override;
};

}
