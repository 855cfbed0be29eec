/// Tests of the whole program on paper: main(), the kit and the macOS platform, from launch to
/// quit.
#pragma once

#include "Cocoa/Paper.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline {

/// Each test runs the program once, in its own home folder. After every run it checks that no
/// exception escaped from the program, no message was unrecognised or sent on the wrong thread, and
/// nothing of the program is left.
class ProgramTest : public testing::Test, private NonCopyable {
protected:
    ProgramTest();

    /// Runs the program; `user` is called between its launch and its end.
    void runProgram(std::function<void()> user);

    /// Checks after a run that nothing went wrong unnoticed and nothing is left.
    static void expectAGoodEnd();

    /// Writes the program's settings file; to be called before or after the run.
    void writePreferences(std::string_view json) const;
    [[nodiscard]] std::string preferences() const;

    /// The lines of the program's log, without timestamps.
    [[nodiscard]] std::vector<std::string> log() const;
    [[nodiscard]] bool logHas(std::string_view line) const;

    [[nodiscard]] std::string supportFolder() const;

    /// Creates an application in the home folder that the workspace finds.
    [[nodiscard]] paper::App makeApp(const std::string& name, int processIdentifier) const;
    /// Installs Notes, Mail and Music, and pins them in Apple's Dock.
    void pinThreeApps();

    [[nodiscard]] const std::string& home() const noexcept { return home_; }

private:
    test::TemporaryFolder folder_;
    std::string home_ = folder_.path();
};

/// One display with Apple's Dock at the bottom, one to its right and one to its left.
[[nodiscard]] std::vector<paper::Display> threeDisplays();

/// The window of the dock on a display; nil if there is none on screen.
[[nodiscard]] NSWindow* dockOn(unsigned display);

/// The accessibility labels of its tiles, in order.
[[nodiscard]] std::vector<std::string> tileNames(NSWindow* dock);
[[nodiscard]] id tileNamed(NSWindow* dock, std::string_view name);
[[nodiscard]] NSPoint centreOf(id tile);

/// The control with this title or accessibility label; nil if there is none.
[[nodiscard]] id controlNamed(NSWindow* window, std::string_view name);
/// Operates a control: turns on a switch or radio button, selects a segment, or sets a slider.
void switchOn(id control, bool isOn);
void push(id button);

}
