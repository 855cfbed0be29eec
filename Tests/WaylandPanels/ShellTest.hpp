/// Base of the tests of what the program shows on Wayland. Qt's own plugin runs in the test
/// program, connected to a fake compositor in another thread, which all tests share; so is a
/// connection of our own.
#pragma once

#include "Connection/WaylandConnection.hpp"
#include "Displays/WaylandScreens.hpp"
#include "Input/Seat.hpp"
#include "Panels/Surfaces/DockContext.hpp"
#include "Toolkit/Appearance.hpp"
#include "Wayland/Fakes/FakeShell.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace vireline::wayland {

class ShellTest : public testing::Test {
protected:
    using Requests = RequestLog::Requests;

    void SetUp() override;
    /// Fails if the test has broken a rule of the protocols.
    void TearDown() override;

    [[nodiscard]] static FakeCompositor& compositor();
    [[nodiscard]] static FakeShell& shell();

    /// Handles events until the condition holds; returns false after a timeout.
    [[nodiscard]] static bool eventually(const std::function<bool()>& condition);
    /// Waits until both sides have handled everything so far.
    static void settle();

    [[nodiscard]] WaylandScreens& screens() { return *screens_; }
    [[nodiscard]] DockContext& context() { return *context_; }
    /// The display as our own connection knows it.
    [[nodiscard]] const Output& output();

private:
    std::optional<WaylandConnection> connection_;
    std::optional<xdg::Appearance> appearance_;
    std::optional<WaylandScreens> screens_;
    std::optional<Seat> seat_;
    std::optional<DockContext> context_;
};

}
