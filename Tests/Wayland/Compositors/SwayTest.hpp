/// Base of the tests under a real sway, which all tests of a suite share.
#pragma once

#include "Linux/EventLoop.hpp"
#include "Wayland/Compositors/SwayDesktop.hpp"

#include <gtest/gtest.h>

#include <optional>

namespace vireline::wayland {

class SwayTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        test::testApplication();
        desk_.emplace();
    }
    static void TearDownTestSuite() { desk_.reset(); }
    void TearDown() override { desk_->closeAll(); }

    static SwayDesktop& desk() { return *desk_; }

private:
    static inline std::optional<SwayDesktop> desk_;
};

}
