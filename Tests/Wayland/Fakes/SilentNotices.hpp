/// Startup notices that nothing sends or hears.
#pragma once

#include "Applications/Launching/StartupNotices.hpp"

namespace vireline::wayland {

class SilentNotices final : public xdg::StartupNotices {
public:
    [[nodiscard]] std::string nextStartupID() override { return "id"; }
    void broadcast(xdg::StartupMessage /*message*/) override {}
    [[nodiscard]] Subscription
    observe(std::function<void(const xdg::StartupMessage&)> /*handler*/) override {
        return {};
    }
};

}
