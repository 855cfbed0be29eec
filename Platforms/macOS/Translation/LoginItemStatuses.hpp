/// How a login item stands, by the system's numbers.
#pragma once

#include "Platform/LoginItemService.hpp"

namespace vireline::macos::LoginItemStatuses {

inline constexpr long notRegistered = 0;
inline constexpr long enabled = 1;
inline constexpr long requiresApproval = 2;

/// An unknown number counts as what the system cannot tell.
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
