#include "VirtualDesktop/Processes/ChildProcess.hpp"

#include "VirtualDesktop/Processes/Waiting.hpp"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vireline::desktop {
namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (auto& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

std::string fileOr(const std::filesystem::path& path) {
    return path.empty() ? "/dev/null" : path.string();
}

void redirect(int descriptor, const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (file >= 0) {
        dup2(file, descriptor);
        close(file);
    }
}

/// The work between fork and exec; uses only async-signal-safe calls.
struct Launch {
    std::vector<char*> arguments;
    std::vector<char*> environment;
    std::string output;
    std::string errors;
    std::optional<int> inherited;

    [[noreturn]] void run() const {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        setsid();
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        redirect(STDOUT_FILENO, output);
        redirect(STDERR_FILENO, errors);
        if (inherited)
            fcntl(*inherited, F_SETFD, 0);
        execvpe(arguments.front(), arguments.data(), environment.data());
        constexpr int commandNotFound = 127;
        _exit(commandNotFound);
    }
};

pid_t start(const Command& command) {
    std::vector<std::string> arguments{command.program};
    std::ranges::copy(command.arguments, std::back_inserter(arguments));
    std::vector<std::string> variables;
    for (const auto& [name, value] : command.environment)
        variables.emplace_back(name).append("=").append(value);
    const Launch launch{pointers(arguments), pointers(variables), fileOr(command.output),
                        fileOr(command.errors), command.inherited};
    const pid_t pid = fork();
    if (pid < 0)
        throw std::system_error{errno, std::generic_category(), "fork"};
    if (pid == 0)
        launch.run();
    return pid;
}

}

ChildProcess::ChildProcess(const Command& command) : pid_(start(command)) {}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : pid_(std::exchange(other.pid_, 0)), exitCode_(other.exitCode_) {}

ChildProcess::~ChildProcess() {
    constexpr std::chrono::seconds grace{3};
    if (pid_ == 0 || !isRunning())
        return;
    signal(SIGTERM);
    if (eventually([this] { return !isRunning(); }, grace))
        return;
    signal(SIGKILL);
    int status = 0;
    waitpid(pid_, &status, 0);
}

void ChildProcess::reap() {
    if (exitCode_ || pid_ == 0)
        return;
    int status = 0;
    if (waitpid(pid_, &status, WNOHANG) != pid_)
        return;
    constexpr int signalBase = 128;
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : signalBase + WTERMSIG(status);
}

bool ChildProcess::isRunning() {
    reap();
    return pid_ != 0 && !exitCode_;
}

std::optional<int> ChildProcess::exitCode() {
    reap();
    return exitCode_;
}

std::optional<int> ChildProcess::waitForExit() {
    static_cast<void>(eventually([this] { return !isRunning(); }));
    return exitCode_;
}

void ChildProcess::signal(int number) const {
    if (pid_ > 0 && !exitCode_)
        kill(pid_, number);
}

}
