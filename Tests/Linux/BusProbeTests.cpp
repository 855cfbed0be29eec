#include "GLib/BusProbe.hpp"
#include "Linux/Environment.hpp"
#include "Support/SilentSocket.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace vireline {
namespace {

constexpr unsigned int patience = 1;

class BusProbeTest : public testing::Test {
protected:
    test::TemporaryFolder folder;
    std::string address = "unix:path=" + (folder.path() / "bus").string();
};

TEST_F(BusProbeTest, ABusThatIsNotThereKeepsNobodyWaiting) {
    EXPECT_TRUE(x11::BusProbe::answers(address, patience));
    EXPECT_TRUE(x11::BusProbe::answers("", patience));
    EXPECT_TRUE(x11::BusProbe::answers("nonsense", patience));
    EXPECT_TRUE(x11::BusProbe::answers("disabled:", patience));
}

TEST_F(BusProbeTest, ABusThatSaysNothingDoesNotAnswer) {
    const test::SilentSocket bus{folder.path() / "bus"};
    EXPECT_FALSE(x11::BusProbe::answers(address, patience));
    EXPECT_FALSE(x11::BusProbe::answers("unix:path=/nowhere/at/all;" + address, patience));
}

TEST_F(BusProbeTest, ABusThatTurnsOneAwayHasAnswered) {
    const test::SilentSocket bus{folder.path() / "bus"};
    std::thread server{[&] { bus.turnAway(); }};
    EXPECT_TRUE(x11::BusProbe::answers(address, patience));
    server.join();
}

TEST_F(BusProbeTest, TheSessionsBusIsWhereTheEnvironmentSaysOrAtTheUsualPlace) {
    const test::EnvironmentVariable variable{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/some/bus"};
    EXPECT_EQ(x11::BusProbe::sessionAddress(), "unix:path=/some/bus");
    x11::BusProbe::hideSessionBus();
    EXPECT_TRUE(x11::BusProbe::answers(x11::BusProbe::sessionAddress(), patience));
    const test::EnvironmentVariable empty{"DBUS_SESSION_BUS_ADDRESS", ""};
    EXPECT_TRUE(x11::BusProbe::sessionAddress().ends_with("/bus"));
}

}
}
