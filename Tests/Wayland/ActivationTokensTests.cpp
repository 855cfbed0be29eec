#include "FakeCompositor.hpp"
#include "Session/ActivationTokens.hpp"
#include "Support/FakeRunLoop.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>
#include <wayland-server-core.h>
#include <xdg-activation-v1-client-protocol.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::wayland {
namespace {

/// Issues that text as the token, or none if there is no text.
class FakeActivation {
public:
    explicit FakeActivation(FakeCompositor& compositor) {
        compositor.offer(xdg_activation_v1_interface, 1, [this](wl_resource* activation) {
            wl_resource_set_dispatcher(activation, getToken, nullptr, this, nullptr);
        });
    }

    std::optional<std::string> text = "token-1";

private:
    static int getToken(const void* /*implementation*/, void* target, std::uint32_t /*opcode*/,
                        const wl_message* message, wl_argument* arguments) {
        auto* const activation = static_cast<wl_resource*>(target);
        if (std::string_view{message->name} != "get_activation_token")
            return 0;
        wl_resource* const token =
            wl_resource_create(wl_resource_get_client(activation),
                               &xdg_activation_token_v1_interface, 1, arguments[0].n);
        wl_resource_set_dispatcher(token, request, nullptr, wl_resource_get_user_data(activation),
                                   nullptr);
        return 0;
    }
    static int request(const void* /*implementation*/, void* target, std::uint32_t /*opcode*/,
                       const wl_message* message, wl_argument* /*arguments*/) {
        auto* const token = static_cast<wl_resource*>(target);
        const auto& self = *static_cast<FakeActivation*>(wl_resource_get_user_data(token));
        constexpr std::uint32_t done = 0;
        if (std::string_view{message->name} == "commit" && self.text)
            wl_resource_post_event(token, done, self.text->c_str());
        else if (std::string_view{message->name} == "destroy")
            wl_resource_destroy(token);
        return 0;
    }
};

class ActivationTokensTest : public testing::Test {
protected:
    void open() {
        display_ = compositor_.connect();
        connection_.emplace(display_.get());
        tokens_.emplace(*connection_, runLoop_, [] { return InputProof{}; });
    }
    void TearDown() override {
        tokens_.reset();
        connection_.reset();
        display_.reset();
    }
    void request() {
        tokens_->makePass(tokens_->nextStartupID(),
                          [this](const xdg::LaunchPass& pass) { passes_.push_back(pass); });
    }
    void sync() const { wl_display_roundtrip(display_.get()); }

    FakeCompositor compositor_;
    test::FakeRunLoop runLoop_;
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    std::optional<ActivationTokens> tokens_;
    std::vector<xdg::LaunchPass> passes_;
};

TEST_F(ActivationTokensTest, AreTheCompositorsForBothKindsOfToolkits) {
    const FakeActivation activation{compositor_};
    open();

    request();
    EXPECT_TRUE(passes_.empty());
    sync();

    EXPECT_EQ(passes_, (std::vector<xdg::LaunchPass>{{"token-1", "token-1"}}));
    runLoop_.advance(10);
    EXPECT_EQ(passes_.size(), 1U);
}

TEST_F(ActivationTokensTest, AreNotWaitedForWhereThereAreNone) {
    open();

    request();

    EXPECT_EQ(passes_, std::vector<xdg::LaunchPass>{{}});
}

TEST_F(ActivationTokensTest, AreNotWaitedForLongerThanHalfASecond) {
    FakeActivation activation{compositor_};
    activation.text.reset();
    open();

    request();
    sync();
    runLoop_.advance(0.49);
    EXPECT_TRUE(passes_.empty());
    runLoop_.advance(0.02);

    EXPECT_EQ(passes_, std::vector<xdg::LaunchPass>{{}});
}

TEST_F(ActivationTokensTest, AreNotPassedOnIfTheyAreNoText) {
    for (const std::string& text : {std::string{"a\nb"}, std::string(2000, 'x')}) {
        FakeCompositor compositor;
        FakeActivation activation{compositor};
        activation.text = text;
        const auto display = compositor.connect();
        const WaylandConnection connection{display.get()};
        ActivationTokens tokens{connection, runLoop_, [] { return InputProof{}; }};

        tokens.makePass("id", [this](const xdg::LaunchPass& pass) { passes_.push_back(pass); });
        wl_display_roundtrip(display.get());
    }

    EXPECT_EQ(passes_, (std::vector<xdg::LaunchPass>{{}, {}}));
}

TEST_F(ActivationTokensTest, OfSeveralLaunchesAreNotMixedUp) {
    FakeActivation activation{compositor_};
    open();
    std::string order;

    tokens_->makePass("a", [&](const xdg::LaunchPass& /*pass*/) { order += 'a'; });
    tokens_->makePass("b", [&](const xdg::LaunchPass& /*pass*/) { order += 'b'; });
    sync();

    EXPECT_EQ(order, "ab");
}

TEST_F(ActivationTokensTest, CanBeRequestedWhileOneArrives) {
    const FakeActivation activation{compositor_};
    open();

    tokens_->makePass("a", [this](const xdg::LaunchPass& /*pass*/) { request(); });
    sync();
    sync();

    EXPECT_EQ(passes_.size(), 1U);
}

TEST_F(ActivationTokensTest, IdentifyLaunches) {
    open();

    const auto first = tokens_->nextStartupID();

    EXPECT_FALSE(first.empty());
    EXPECT_NE(first, tokens_->nextStartupID());
}

}
}
