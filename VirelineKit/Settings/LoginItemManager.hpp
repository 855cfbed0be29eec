/// Turns launching at login on and off. Keeps no state of its own, since the user may change the
/// login item elsewhere: the system is asked each time.
#pragma once

namespace vireline {

class LoginItemService;

class LoginItemManager {
public:
    explicit LoginItemManager(LoginItemService& service) : service_(service) {}
    LoginItemManager(const LoginItemManager&) = delete;
    LoginItemManager& operator=(const LoginItemManager&) = delete;
    LoginItemManager(LoginItemManager&&) = delete;
    LoginItemManager& operator=(LoginItemManager&&) = delete;
    ~LoginItemManager() = default;

    /// False while the login item waits for the user's approval.
    [[nodiscard]] bool isEnabled() const;

    /// Unregisters the login item if it is enabled, otherwise registers it. A failure is logged.
    void toggle();

private:
    LoginItemService& service_;
};

}
