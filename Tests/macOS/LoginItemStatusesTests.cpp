#include "Translation/LoginItemStatuses.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

namespace LoginItemStatuses = macos::LoginItemStatuses;

TEST(LoginItemStatuses, KnowTheSystemsNumbers) {
    EXPECT_EQ(LoginItemStatuses::fromReported(0), LoginItemService::Status::notRegistered);
    EXPECT_EQ(LoginItemStatuses::fromReported(1), LoginItemService::Status::enabled);
    EXPECT_EQ(LoginItemStatuses::fromReported(2), LoginItemService::Status::requiresApproval);
    EXPECT_EQ(LoginItemStatuses::fromReported(3), LoginItemService::Status::notFound);
}

TEST(LoginItemStatuses, TakeAnUnknownNumberForAnItemThatIsNotFound) {
    EXPECT_EQ(LoginItemStatuses::fromReported(4), LoginItemService::Status::notFound);
    EXPECT_EQ(LoginItemStatuses::fromReported(-1), LoginItemService::Status::notFound);
}

}
}
