/// What the system says of a process, in the kit's terms.
#pragma once

#include "Platform/RunningApplications.hpp"

namespace vireline::macos::ProcessFacts {

/// The system's numbers; any other stands for a process without a user interface.
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

/// The system says -1 of an app that has no process yet or no longer.
[[nodiscard]] constexpr std::int32_t processIdentifier(std::int32_t reported) {
    return reported > 0 ? reported : 0;
}

}
