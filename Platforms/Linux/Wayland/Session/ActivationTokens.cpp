#include "Session/ActivationTokens.hpp"

#include "Connection/EventText.hpp"
#include "Text/PlainText.hpp"

#include <unistd.h>
#include <xdg-activation-v1-client-protocol.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vireline::wayland {
namespace {

/// Tokens are some dozens of bytes long.
constexpr std::size_t maximumTokenBytes = 1024;

}

struct ActivationTokens::Events {
    static void done(void* data, xdg_activation_token_v1* token, const char* text) {
        static_cast<ActivationTokens*>(data)->answer(token, eventText(text));
    }

    static constexpr xdg_activation_token_v1_listener listener{.done = done};
};

ActivationTokens::ActivationTokens(const WaylandConnection& connection, RunLoop& runLoop,
                                   std::function<InputProof()> lastInput)
    : connection_(connection)
    , runLoop_(runLoop)
    , lastInput_(std::move(lastInput))
    , activation_(connection.bind<xdg_activation_v1>(xdg_activation_v1_interface, 1)) {}

ActivationTokens::~ActivationTokens() = default;

std::string ActivationTokens::nextStartupID() {
    return "vireline-" + std::to_string(getpid()) + '-' + std::to_string(++launches_);
}

void ActivationTokens::makePass(const std::string& /*startupID*/,
                                const std::function<void(xdg::LaunchPass)>& done) {
    if (!activation_) {
        done({});
        return;
    }
    auto* const token = xdg_activation_v1_get_activation_token(activation_.get());
    xdg_activation_token_v1_add_listener(token, &Events::listener, this);
    if (const auto [seat, serial] = lastInput_(); seat != nullptr)
        xdg_activation_token_v1_set_serial(token, serial, seat);
    xdg_activation_token_v1_commit(token);
    connection_.flush();
    requests_.push_back({.token = Proxy<xdg_activation_token_v1>{token},
                         .done = done,
                         .timeout = runLoop_.after(timeoutSeconds, lifetime_.guard([this, token] {
                             answer(token, {});
                         }))});
}

void ActivationTokens::answer(xdg_activation_token_v1* token, std::string_view text) {
    const auto found = std::ranges::find_if(
        requests_, [token](const Request& request) { return request.token.get() == token; });
    if (found == requests_.end())
        return;
    const auto done = std::move(found->done);
    requests_.erase(found);
    const bool isUsable = xdg::PlainText::isClean(text, maximumTokenBytes);
    const std::string usable{isUsable ? text : std::string_view{}};
    done({.startupID = usable, .activationToken = usable});
}

}
