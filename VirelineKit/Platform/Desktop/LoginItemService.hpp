/// Whether the system starts this program when the user logs in.
#pragma once

#include "Foundation/Result.hpp"

namespace vireline {

class LoginItemService {
public:
    enum class Status {
        notRegistered,
        enabled,
        requiresApproval, ///< registered, but switched off by the user or for this desktop
        notFound,         ///< the system cannot tell
    };

    virtual ~LoginItemService() = default;

    /// The current status. Not cached, since it can change at any time.
    [[nodiscard]] virtual Status status() const = 0;

    virtual Result<void> registerItem() = 0;
    virtual Result<void> unregisterItem() = 0;
};

}
