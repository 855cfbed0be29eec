#include "GLib/BusProbe.hpp"
#include "Linux/Environment.hpp"
#include "Support/SilentSocket.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace vireline {
namespace {

constexpr unsigned int timeout = 1;

class BusProbeTest : public testing::Test {
protected:
    test::TemporaryFolder folder;
    std::string address = "unix:path=" + (folder.path() / "bus").string();
};

TEST_F(BusProbeTest, AMissingBusBlocksNothing) {
    EXPECT_TRUE(xdg::BusProbe::answers(address, timeout));
    EXPECT_TRUE(xdg::BusProbe::answers("", timeout));
    EXPECT_TRUE(xdg::BusProbe::answers("nonsense", timeout));
    EXPECT_TRUE(xdg::BusProbe::answers("disabled:", timeout));
}

TEST_F(BusProbeTest, ABusThatSaysNothingDoesNotAnswer) {
    const test::SilentSocket bus{folder.path() / "bus"};
    EXPECT_FALSE(xdg::BusProbe::answers(address, timeout));
    EXPECT_FALSE(xdg::BusProbe::answers("unix:path=/nowhere/at/all;" + address, timeout));
}

TEST_F(BusProbeTest, ABusThatTurnsOneAwayHasAnswered) {
    const test::SilentSocket bus{folder.path() / "bus"};
    std::thread server{[&] { bus.turnAway(); }};
    EXPECT_TRUE(xdg::BusProbe::answers(address, timeout));
    server.join();
}

TEST_F(BusProbeTest, TheSessionsBusIsWhereTheEnvironmentSaysOrAtTheUsualPlace) {
    const test::EnvironmentVariable variable{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/some/bus"};
    EXPECT_EQ(xdg::BusProbe::sessionAddress(), "unix:path=/some/bus");
    xdg::BusProbe::hideSessionBus();
    EXPECT_TRUE(xdg::BusProbe::answers(xdg::BusProbe::sessionAddress(), timeout));
    const test::EnvironmentVariable empty{"DBUS_SESSION_BUS_ADDRESS", ""};
    EXPECT_TRUE(xdg::BusProbe::sessionAddress().ends_with("/bus"));
}

}
}
