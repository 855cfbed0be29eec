/// The pointer's path under X11: every move of the pointing device is announced (XInput 2 raw
/// motion), whoever holds the pointer, and the pointer is put elsewhere by a warp. The server has
/// moved it by then, for less time than it takes to show it.
#pragma once

#include "Platform/PointerTap.hpp"

namespace vireline::x11 {

class RandrScreens;

class XInputPointerTaps final : public PointerTaps {
public:
    /// Outlives every tap.
    explicit XInputPointerTaps(const RandrScreens& screens) : screens_(screens) {}

    [[nodiscard]] bool needPermission() const override { return false; }

    /// Fails without XInput 2.1. Each tap has a connection of its own, is served on the main
    /// thread, and is never disabled by the system.
    [[nodiscard]] Result<std::unique_ptr<PointerTap>> create(PointerRule rule,
                                                             Disabled onDisabled) override;

private:
    const RandrScreens& screens_;
};

}
