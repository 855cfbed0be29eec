/// A program that the test harness starts and ends. It never outlives its owner, even if the
/// harness is killed.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

/// The complete environment of a child; nothing else is inherited.
using Environment = std::map<std::string, std::string>;

/// How to start a program.
struct Command {
    /// A path, or a name to be found in PATH.
    std::string program;
    std::vector<std::string> arguments;
    Environment environment;
    /// Files for its standard output and standard error; discarded if empty.
    std::filesystem::path output;
    std::filesystem::path errors;
    /// An open descriptor that the child inherits with the same number.
    std::optional<int> inherited;
};

class ChildProcess {
public:
    /// Throws if the program cannot be started.
    explicit ChildProcess(const Command& command);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&&) = delete;
    /// Asks it to terminate, and kills it if it does not.
    ~ChildProcess();

    [[nodiscard]] pid_t pid() const noexcept { return pid_; }
    [[nodiscard]] bool isRunning();

    /// The exit status once it has exited, or 128 plus the number of the signal that killed it.
    [[nodiscard]] std::optional<int> exitCode();

    /// As above, after waiting for it.
    [[nodiscard]] std::optional<int> waitForExit();

    void signal(int number) const;

private:
    void reap();

    pid_t pid_ = 0;
    std::optional<int> exitCode_;
};

}
