/// The statuses of a login item, with the system's values.
#pragma once

#include "Platform/Desktop/LoginItemService.hpp"

namespace vireline::macos::LoginItemStatuses {

inline constexpr long notRegistered = 0;
inline constexpr long enabled = 1;
inline constexpr long requiresApproval = 2;

/// Unknown values become `notFound`.
[[nodiscard]] constexpr LoginItemService::Status fromReported(long status) {
    switch (status) {
    case notRegistered:
        return LoginItemService::Status::notRegistered;
    case enabled:
        return LoginItemService::Status::enabled;
    case requiresApproval:
        return LoginItemService::Status::requiresApproval;
    default:
        return LoginItemService::Status::notFound;
    }
}

}
