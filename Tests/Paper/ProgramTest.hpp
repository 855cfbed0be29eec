/// Tests of the whole program on paper: main(), the kit and the macOS platform, from launch to
/// quit.
#pragma once

#include "Cocoa/Paper.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline {

/// Each test runs the program once, in a home folder of its own. Behind every run it checks that
/// nothing went wrong unseen: no exception left the program, no message was without an answer or on
/// a wrong thread, and nothing of the program is left.
class ProgramTest : public testing::Test {
protected:
    ProgramTest();
    ProgramTest(const ProgramTest&) = delete;
    ProgramTest& operator=(const ProgramTest&) = delete;
    ProgramTest(ProgramTest&&) = delete;
    ProgramTest& operator=(ProgramTest&&) = delete;
    ~ProgramTest() override = default;

    /// Runs the program; `user` is what happens between its launch and its end.
    void runProgram(std::function<void()> user);

    /// Behind a run: nothing went wrong unseen, and nothing is left.
    static void expectAGoodEnd();

    /// The program's settings file, before or behind the run.
    void writePreferences(std::string_view json) const;
    [[nodiscard]] std::string preferences() const;

    /// The lines of the program's log, without their times.
    [[nodiscard]] std::vector<std::string> log() const;
    [[nodiscard]] bool logHas(std::string_view line) const;

    [[nodiscard]] std::string supportFolder() const;

    /// An application in the home folder, known to the workspace.
    [[nodiscard]] paper::App makeApp(const std::string& name, int processIdentifier) const;
    /// Notes, Mail and Music are installed and pinned in Apple's Dock.
    void pinThreeApps();

    [[nodiscard]] const std::string& home() const noexcept { return home_; }

private:
    test::TemporaryFolder folder_;
    std::string home_ = folder_.path();
};

/// One display with Apple's Dock at its bottom, one to its right, one to its left.
[[nodiscard]] std::vector<paper::Display> threeDisplays();

/// The window of the dock on a display; nil if there is none on screen.
[[nodiscard]] NSWindow* dockOn(unsigned display);

/// What assistive technology finds in it, in order.
[[nodiscard]] std::vector<std::string> tileNames(NSWindow* dock);
[[nodiscard]] id tileNamed(NSWindow* dock, std::string_view name);
[[nodiscard]] NSPoint centreOf(id tile);

/// The control of a window that bears this title or accessibility label; nil if there is none.
[[nodiscard]] id controlNamed(NSWindow* window, std::string_view name);
/// Uses a control: a switch or radio button goes on, a segment is chosen, a slider is set.
void switchOn(id control, bool isOn);
void push(id button);

}
