/// Watches the pointer under X11: every move is reported (XInput 2 raw motion), even while another
/// program has grabbed the pointer, and the pointer is moved by warping it. By then the server has
/// already moved it, but for less time than a frame.
#pragma once

#include "Platform/Desktop/PointerTap.hpp"

namespace vireline::x11 {

class RandrScreens;

class XInputPointerTaps final : public PointerTaps {
public:
    /// `screens` must outlive every tap.
    explicit XInputPointerTaps(const RandrScreens& screens) : screens_(screens) {}

    [[nodiscard]] bool needPermission() const override { return false; }

    /// Fails without XInput 2.1. Each tap has its own connection, calls back on the main thread,
    /// and is never disabled by the system.
    [[nodiscard]] Result<std::unique_ptr<PointerTap>> create(PointerRule rule,
                                                             Disabled onDisabled) override;

private:
    const RandrScreens& screens_;
};

}
