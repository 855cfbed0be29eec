#include "Session/ActivationTokens.hpp"
#include "Support/FakeRunLoop.hpp"
#include "Wayland/Compositors/SwayTest.hpp"
#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/RequestLog.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>
#include <wayland-server-core.h>
#include <xdg-activation-v1-client-protocol.h>

#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {
namespace {

/// Issues that text as the token, or none if there is no text.
class FakeActivation {
public:
    explicit FakeActivation(FakeCompositor& compositor) : log_(compositor) {
        log_.onRequest = [this](const RequestLog::Request& request) {
            constexpr std::uint32_t done = 0;
            if (request.name == "commit" && text)
                wl_resource_post_event(request.object, done, text->c_str());
        };
        compositor.offer(xdg_activation_v1_interface, 1,
                         [this](wl_resource* activation) { log_.watch(activation); });
    }

    /// The requests since the previous call.
    [[nodiscard]] RequestLog::Requests requests() { return log_.take(); }

    std::optional<std::string> text = "token-1";

private:
    RequestLog log_;
};

class ActivationTokensTest : public testing::Test {
protected:
    void open() {
        display_ = compositor_.connect();
        connection_.emplace(display_.get());
        tokens_.emplace(*connection_, runLoop_, [this] { return lastInput_; });
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
    InputProof lastInput_;
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

TEST_F(ActivationTokensTest, AreRequestedWithTheProofOfTheLastInput) {
    compositor_.offer(wl_seat_interface, 1);
    FakeActivation activation{compositor_};
    open();
    const auto seat = connection_->bind<wl_seat>(wl_seat_interface, 1);
    lastInput_ = {.seat = seat.get(), .serial = 4711};

    request();
    sync();
    sync();

    EXPECT_EQ(activation.requests(),
              (RequestLog::Requests{"xdg_activation_v1 get_activation_token",
                                    "xdg_activation_token_v1 set_serial 4711",
                                    "xdg_activation_token_v1 commit",
                                    "xdg_activation_token_v1 destroy"}));
}

/// No surface of a dock has the focus, so none is named.
TEST_F(ActivationTokensTest, AreRequestedWithoutProofWhereThereIsNoInputDevice) {
    FakeActivation activation{compositor_};
    open();

    request();
    sync();
    sync();

    EXPECT_EQ(activation.requests(), (RequestLog::Requests{"xdg_activation_v1 get_activation_token",
                                                           "xdg_activation_token_v1 commit",
                                                           "xdg_activation_token_v1 destroy"}));
    EXPECT_EQ(passes_.size(), 1U);
}

TEST_F(ActivationTokensTest, MayBeEmpty) {
    FakeActivation activation{compositor_};
    activation.text = "";
    open();

    request();
    sync();

    EXPECT_EQ(passes_, std::vector<xdg::LaunchPass>{{}});
}

TEST_F(ActivationTokensTest, AreNotWaitedForOnceTheCompositorHasDied) {
    const FakeActivation activation{compositor_};
    open();
    compositor_.die();
    sync();

    request();
    runLoop_.advance(ActivationTokens::timeoutSeconds);

    EXPECT_EQ(passes_, std::vector<xdg::LaunchPass>{{}});
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

using ActivationTokensUnderSway = SwayTest;

TEST_F(ActivationTokensUnderSway, AreIssuedWithoutAFocusedSurface) {
    const Proxy<wl_display> display{wl_display_connect(desk().display().c_str())};
    ASSERT_NE(display, nullptr);
    const WaylandConnection connection{display.get()};
    test::FakeRunLoop runLoop;
    ActivationTokens tokens{connection, runLoop, [] { return InputProof{}; }};
    std::optional<xdg::LaunchPass> received;

    tokens.makePass("id", [&](const xdg::LaunchPass& pass) { received = pass; });
    wl_display_roundtrip(display.get());

    ASSERT_TRUE(received);
    EXPECT_NE(received->activationToken, "");
}

}
}
