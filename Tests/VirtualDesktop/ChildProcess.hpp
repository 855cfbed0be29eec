/// A program that the harness starts and ends. It never outlives its owner, nor a harness that was
/// killed.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

/// The whole environment of a child; nothing is inherited besides.
using Environment = std::map<std::string, std::string>;

/// How to start a program.
struct Command {
    /// A path, or a name to look for in PATH.
    std::string program;
    std::vector<std::string> arguments;
    Environment environment;
    /// Files that receive its standard output and its errors; they are dropped when empty.
    std::filesystem::path output;
    std::filesystem::path errors;
    /// An open descriptor that the child inherits under the same number.
    std::optional<int> inherited;
};

class ChildProcess {
public:
    /// Throws when the program cannot be started.
    explicit ChildProcess(const Command& command);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&&) = delete;
    /// Asks it to end, and makes it when it does not.
    ~ChildProcess();

    [[nodiscard]] pid_t pid() const noexcept { return pid_; }
    [[nodiscard]] bool isRunning();

    /// The exit code once it has ended, 128 and the signal's number when a signal ended it.
    [[nodiscard]] std::optional<int> exitCode();

    /// The same, after a wait.
    [[nodiscard]] std::optional<int> waitForExit();

    void signal(int number) const;

private:
    void reap();

    pid_t pid_ = 0;
    std::optional<int> exitCode_;
};

}
