#include "Translation/LoginItemStatuses.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using macos::LoginItemStatuses::fromReported;

TEST(LoginItemStatuses, KnowTheSystemsNumbers) {
    EXPECT_EQ(fromReported(0), LoginItemService::Status::notRegistered);
    EXPECT_EQ(fromReported(1), LoginItemService::Status::enabled);
    EXPECT_EQ(fromReported(2), LoginItemService::Status::requiresApproval);
    EXPECT_EQ(fromReported(3), LoginItemService::Status::notFound);
}

TEST(LoginItemStatuses, TakeAnUnknownNumberForAnItemThatIsNotFound) {
    EXPECT_EQ(fromReported(4), LoginItemService::Status::notFound);
    EXPECT_EQ(fromReported(-1), LoginItemService::Status::notFound);
}

}
}
