/// Turns launching at login on and off. Keeps no state of its own, since the user may change the
/// login item elsewhere: the system is asked each time.
#pragma once

#include "Foundation/NonCopyable.hpp"

namespace vireline {

class LoginItemService;

class LoginItemManager : private NonCopyable {
public:
    explicit LoginItemManager(LoginItemService& service) : service_(service) {}

    /// False while the login item waits for the user's approval.
    [[nodiscard]] bool isEnabled() const;

    /// Unregisters the login item if it is enabled, otherwise registers it. A failure is logged.
    void toggle();

private:
    LoginItemService& service_;
};

}
