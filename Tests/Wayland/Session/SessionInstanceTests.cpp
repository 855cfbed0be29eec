#include "Linux/EventLoop.hpp"
#include "Session/SessionInstance.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace vireline::wayland {
namespace {

class SessionInstanceTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::testApplication(); }

    [[nodiscard]] std::unique_ptr<SessionInstance> claim(const std::string& display = "wayland-1") {
        return SessionInstance::claim(folder_.path(), display);
    }

    /// Sends that to the running instance, as any program of the user could.
    void send(std::string_view text) const {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string path = folder_.path() / "vireline-wayland-1.socket";
        std::ranges::copy(path, address.sun_path);
        const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(sendto(socket, text.data(), text.size(), 0,
                         reinterpret_cast<const sockaddr*>(&address), sizeof address),
                  static_cast<ssize_t>(text.size()));
        close(socket);
    }

    test::TemporaryFolder folder_;
};

TEST_F(SessionInstanceTest, IsTheFirstStart) {
    const auto first = claim();
    ASSERT_NE(first, nullptr);
    int starts = 0;
    const auto watch = first->observe([&] { ++starts; });

    EXPECT_EQ(claim(), nullptr);

    EXPECT_TRUE(test::waitUntil([&] { return starts == 1; }));
}

TEST_F(SessionInstanceTest, ReportsStartsBeforeItWasObserved) {
    const auto first = claim();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(claim(), nullptr);
    EXPECT_EQ(claim(), nullptr);
    int starts = 0;

    const auto watch = first->observe([&] { ++starts; });

    EXPECT_TRUE(test::waitUntil([&] { return starts > 0; }));
    test::deliverPendingEvents();
    EXPECT_EQ(starts, 1) << "for all of them";
}

TEST_F(SessionInstanceTest, IsSeparateForEachSession) {
    const auto first = claim("wayland-1");
    const auto other = claim("wayland-2");
    const auto nested = claim("/run/user/1/wayland-1");

    EXPECT_NE(first, nullptr);
    EXPECT_NE(other, nullptr);
    EXPECT_NE(nested, nullptr);
}

TEST_F(SessionInstanceTest, IsTheNextStartOnceItHasEnded) {
    claim().reset();

    const auto next = claim();
    ASSERT_NE(next, nullptr);
    int starts = 0;
    const auto watch = next->observe([&] { ++starts; });
    EXPECT_EQ(claim(), nullptr);
    EXPECT_TRUE(test::waitUntil([&] { return starts == 1; }));
}

TEST_F(SessionInstanceTest, IsFoundUnderACompositorWhoseSocketHasALongPath) {
    const std::string display = "/somewhere/" + std::string(90, 'x') + "/wayland-1";
    const auto first = claim(display);
    ASSERT_NE(first, nullptr);
    int starts = 0;
    const auto watch = first->observe([&] { ++starts; });

    EXPECT_EQ(claim(display), nullptr);
    EXPECT_NE(claim("/elsewhere/wayland-1"), nullptr);

    EXPECT_TRUE(test::waitUntil([&] { return starts == 1; }));
}

TEST_F(SessionInstanceTest, IsTheSameByTheNameAndByThePathOfTheSocket) {
    const auto first = claim("wayland-1");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(claim(folder_.path() / "wayland-1"), nullptr);
}

TEST_F(SessionInstanceTest, IsTheNextStartAfterACrash) {
    const pid_t child = fork();
    if (child == 0) {
        auto instance = claim();
        // Ends without any destructor.
        _exit(instance ? (instance.release(), 0) : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);

    EXPECT_NE(claim(), nullptr);
}

TEST_F(SessionInstanceTest, IsOneOfManyThatStartAtOnce) {
    std::vector<std::unique_ptr<SessionInstance>> instances(16);
    {
        std::vector<std::jthread> starts;
        starts.reserve(instances.size());
        for (auto& instance : instances)
            starts.emplace_back([&] { instance = claim(); });
    }

    std::erase(instances, nullptr);
    EXPECT_EQ(instances.size(), 1U);
}

TEST_F(SessionInstanceTest, IgnoresWhatElseIsSentToIt) {
    const auto first = claim();
    int starts = 0;
    const auto watch = first->observe([&] { ++starts; });

    for (const std::string_view text : {"", "show settings 2", "nonsense"})
        send(text);
    send(std::string(1000, 'x'));
    test::deliverPendingEvents();
    EXPECT_EQ(starts, 0);

    send("show settings 1");
    EXPECT_TRUE(test::waitUntil([&] { return starts == 1; }));
}

TEST_F(SessionInstanceTest, FollowsNoSymbolicLink) {
    std::filesystem::create_symlink(folder_.path() / "elsewhere",
                                    folder_.path() / "vireline-wayland-1.lock");

    EXPECT_NE(claim(), nullptr);
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "elsewhere"));
}

TEST(SessionInstance, LetsEveryStartRunWithoutARuntimeFolder) {
    EXPECT_NE(SessionInstance::claim({}, "wayland-1"), nullptr);
    const auto instance = SessionInstance::claim("/nonexistent", "wayland-1");
    ASSERT_NE(instance, nullptr);
    EXPECT_TRUE(instance->observe([] {}));
}

}
}
