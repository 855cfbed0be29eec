/// Turns the start at login on and off. Keeps no state: what the system has is the only truth, read
/// afresh whenever it matters.
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

    /// One that waits for the user's approval does not count.
    [[nodiscard]] bool isEnabled() const;

    /// Registers the login item, or unregisters it when it is enabled. A failure is logged.
    void toggle();

private:
    LoginItemService& service_;
};

}
