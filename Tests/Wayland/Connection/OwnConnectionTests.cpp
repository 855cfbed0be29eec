#include "Connection/OwnConnection.hpp"
#include "Linux/EventLoop.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "Wayland/Fakes/FakeCompositor.hpp"

#include <gtest/gtest.h>
#include <xdg-shell-client-protocol.h>

#include <QString>
#include <chrono>
#include <memory>
#include <vector>

namespace vireline::wayland {
namespace {

using namespace std::chrono_literals;

/// Collects what Qt would print, during the lifetime of this object.
class CriticalMessages : private NonCopyable {
public:
    CriticalMessages() : before_(qInstallMessageHandler(&CriticalMessages::collect)) {
        collected().clear();
    }
    ~CriticalMessages() { qInstallMessageHandler(before_); }

    [[nodiscard]] static std::vector<QString>& collected() {
        static std::vector<QString> messages;
        return messages;
    }

private:
    static void collect(QtMsgType type, const QMessageLogContext& /*context*/,
                        const QString& message) {
        if (type == QtCriticalMsg)
            collected().push_back(message);
    }

    QtMessageHandler before_;
};

class OwnConnectionTest : public testing::Test {
protected:
    OwnConnectionTest() {
        test::testApplication();
        own_ = std::make_unique<OwnConnection>(compositor_.connect());
        globals_ = own_->globals().observe([this] { ++changes_; });
        watch_ = own_->observeReads([this] { ++reads_; });
        test::deliverPendingEvents();
        reads_ = 0;
    }

    /// An event for the client.
    void offer() {
        compositor_.offer(xdg_wm_base_interface, 2);
        compositor_.send([] {});
    }
    [[nodiscard]] bool isOffered() const { return own_->globals().offered("xdg_wm_base") > 0; }

    FakeCompositor compositor_;
    std::unique_ptr<OwnConnection> own_;
    Subscription globals_;
    Subscription watch_;
    int changes_ = 0;
    int reads_ = 0;
};

TEST_F(OwnConnectionTest, HandlesWhatHasArrived) {
    offer();
    EXPECT_FALSE(isOffered());

    EXPECT_TRUE(test::waitUntil([&] { return reads_ > 0; }));
    EXPECT_TRUE(isOffered());
    EXPECT_EQ(changes_, 1);
}

TEST_F(OwnConnectionTest, SendsWhatEventsHaveRequested) {
    Proxy<xdg_wm_base> bound;
    const auto watch = own_->globals().observe(
        [&] { bound = own_->globals().bind<xdg_wm_base>(xdg_wm_base_interface, 2); });
    offer();
    EXPECT_TRUE(test::waitUntil([&] { return reads_ > 0; }));

    EXPECT_TRUE(
        desktop::eventually([&] { return compositor_.boundVersion(xdg_wm_base_interface) == 2; }));
}

TEST_F(OwnConnectionTest, LeavesEventsUnreadDuringAPause) {
    constexpr std::chrono::hours long_{1};
    own_->pause(long_);
    offer();
    test::deliverPendingEvents();
    EXPECT_EQ(reads_, 0);
    EXPECT_FALSE(isOffered());

    own_->shortenPause(long_ * 2);
    test::deliverPendingEvents();
    EXPECT_EQ(reads_, 0);

    own_->shortenPause(1ms);
    EXPECT_TRUE(test::waitUntil([&] { return reads_ > 0; }));
    EXPECT_TRUE(isOffered());
}

TEST_F(OwnConnectionTest, ReadsAtOnceAfterAPause) {
    own_->pause(1ms);
    EXPECT_TRUE(test::waitUntil([&] { return reads_ > 0; }));

    offer();
    EXPECT_TRUE(test::waitUntil([&] { return isOffered(); }));
}

TEST_F(OwnConnectionTest, ReportsOnceThatItBroke) {
    const CriticalMessages messages;
    compositor_.die();

    EXPECT_TRUE(test::waitUntil([&] { return !messages.collected().empty(); }));
    own_->shortenPause(0ms);
    test::deliverPendingEvents();

    ASSERT_EQ(messages.collected().size(), 1U);
    EXPECT_TRUE(messages.collected().front().startsWith(
        QStringLiteral("The Wayland connection of the docks broke")));
    EXPECT_EQ(reads_, 0) << "nothing was handled";
}

TEST_F(OwnConnectionTest, ReportsAfterAPauseThatItBroke) {
    const CriticalMessages messages;
    own_->pause(1ms);
    compositor_.die();

    EXPECT_TRUE(test::waitUntil([&] { return !messages.collected().empty(); }));
    test::deliverPendingEvents();
    EXPECT_EQ(messages.collected().size(), 1U);
}

}
}
