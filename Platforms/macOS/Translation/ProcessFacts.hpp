/// Converts what the system reports of a process into the kit's types.
#pragma once

#include "Platform/Applications/RunningApplications.hpp"

namespace vireline::macos::ProcessFacts {

/// The system's values. All others mean a process without a user interface.
inline constexpr long regularPolicy = 0;
inline constexpr long accessoryPolicy = 1;

[[nodiscard]] constexpr ActivationPolicy activationPolicy(long policy) {
    switch (policy) {
    case regularPolicy:
        return ActivationPolicy::regular;
    case accessoryPolicy:
        return ActivationPolicy::accessory;
    default:
        return ActivationPolicy::prohibited;
    }
}

/// The system reports -1 for an app that has no process, which becomes 0.
[[nodiscard]] constexpr std::int32_t processIdentifier(std::int32_t reported) {
    return reported > 0 ? reported : 0;
}

}
