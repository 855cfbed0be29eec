#include "Settings/LoginItemManager.hpp"
#include "Support/FakeProgramWindows.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using LoginStatus = LoginItemService::Status;

class LoginItemManagerTest : public testing::Test {
protected:
    test::LoggedLines log;
    test::FakeLoginItemService service;
    LoginItemManager manager{service};
};

TEST_F(LoginItemManagerTest, CountsAsOnWithTheEnabledStatusAlone) {
    for (const LoginStatus status :
         {LoginStatus::notRegistered, LoginStatus::requiresApproval, LoginStatus::notFound}) {
        service.current = status;
        EXPECT_FALSE(manager.isEnabled());
    }
    service.current = LoginStatus::enabled;
    EXPECT_TRUE(manager.isEnabled());
}

TEST_F(LoginItemManagerTest, RegistersAnItemThatIsNot) {
    manager.toggle();

    EXPECT_EQ(service.registrations, 1);
    EXPECT_EQ(service.unregistrations, 0);
    EXPECT_EQ(log.messages(), std::vector<std::string>{"login item registered"});
}

// Behaviour: login-item-1
TEST_F(LoginItemManagerTest, OnlyUnregistersAnEnabledItem) {
    service.current = LoginStatus::enabled;

    manager.toggle();

    EXPECT_EQ(service.registrations, 0);
    EXPECT_EQ(service.unregistrations, 1);
    EXPECT_EQ(log.messages(), std::vector<std::string>{"login item unregistered"});
}

// Behaviour: login-item-2
TEST_F(LoginItemManagerTest, RegistersAnItemThatWaitsForApproval) {
    service.current = LoginStatus::requiresApproval;

    manager.toggle();

    EXPECT_EQ(service.registrations, 1);
    EXPECT_EQ(service.unregistrations, 0);
}

// Behaviour: login-item-3
TEST_F(LoginItemManagerTest, LogsAFailedRegistrationOnceAndLeavesTheStatus) {
    service.failure = PlatformError{13, "Permission denied"};

    manager.toggle();

    EXPECT_EQ(service.current, LoginStatus::notRegistered);
    EXPECT_EQ(log.messages(),
              std::vector<std::string>{"login item toggle failed: Permission denied"});
}

TEST_F(LoginItemManagerTest, LogsAFailedUnregistration) {
    service.current = LoginStatus::enabled;
    service.failure = PlatformError{30, "Read-only file system"};

    manager.toggle();

    EXPECT_TRUE(manager.isEnabled());
    EXPECT_EQ(log.messages(),
              std::vector<std::string>{"login item toggle failed: Read-only file system"});
}

}
}
