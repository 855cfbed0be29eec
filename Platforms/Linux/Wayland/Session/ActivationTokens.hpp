/// Requests the tokens with which launched apps' windows may come to the front (xdg_activation_v1).
#pragma once

#include "Applications/Launching/StartupNotices.hpp"
#include "Connection/Proxies.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/RunLoop.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct wl_seat;

namespace vireline::wayland {

/// The user's last press of a button or key, which proves to the compositor that the user wanted
/// the launch.
struct InputProof {
    /// Null if there is none.
    wl_seat* seat = nullptr;
    std::uint32_t serial = 0;
};

class ActivationTokens final : public xdg::StartupNotices, private NonCopyable {
public:
    /// How long a launch waits for its token.
    static constexpr double timeoutSeconds = 0.5;

    ActivationTokens(const WaylandConnection& connection, RunLoop& runLoop,
                     std::function<InputProof()> lastInput);
    ~ActivationTokens() override;

    [[nodiscard]] std::string nextStartupID() override;
    /// `done` receives an empty pass if there is no answer in time.
    void makePass(const std::string& startupID,
                  const std::function<void(xdg::LaunchPass)>& done) override;
    /// Programs do not announce launches to each other here.
    void broadcast(xdg::StartupMessage /*message*/) override {}
    [[nodiscard]] Subscription
    observe(std::function<void(const xdg::StartupMessage&)> /*handler*/) override {
        return {};
    }

private:
    struct Events;
    struct Request {
        Proxy<xdg_activation_token_v1> token;
        std::function<void(xdg::LaunchPass)> done;
        Timer timeout;
    };

    void answer(xdg_activation_token_v1* token, std::string_view text);

    const WaylandConnection& connection_;
    RunLoop& runLoop_;
    std::function<InputProof()> lastInput_;
    /// Null if the compositor issues none.
    Proxy<xdg_activation_v1> activation_;
    std::vector<Request> requests_;
    std::uint64_t launches_ = 0;
    Lifetime lifetime_;
};

}
