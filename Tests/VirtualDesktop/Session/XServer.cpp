#include "VirtualDesktop/Session/XServer.hpp"

#include "Foundation/NonCopyable.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/Session/Home.hpp"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <system_error>

namespace vireline::desktop {
namespace {

/// No devices except XTest's, and video memory for several large monitors.
constexpr std::string_view outputsConfiguration = R"(Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoAddGPU" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "card"
    Driver "dummy"
    VideoRam 262144
EndSection
Section "Screen"
    Identifier "screen"
    Device "card"
    DefaultDepth 24
EndSection
)";

class Pipe : private NonCopyable {
public:
    Pipe() {
        if (pipe2(ends_.data(), O_CLOEXEC) != 0)
            throw std::system_error{errno, std::generic_category(), "pipe"};
    }
    ~Pipe() {
        closeWritingEnd();
        close(ends_[0]);
    }

    [[nodiscard]] int writingEnd() const { return ends_[1]; }
    void closeWritingEnd() {
        if (ends_[1] >= 0)
            close(ends_[1]);
        ends_[1] = -1;
    }

    /// Reads up to a line feed, the end of the file, or the timeout.
    [[nodiscard]] std::string readLine() const {
        std::string line;
        pollfd readable{ends_[0], POLLIN, 0};
        const auto limit = std::chrono::milliseconds{conditionTimeout}.count();
        while (poll(&readable, 1, static_cast<int>(limit)) == 1) {
            char letter = 0;
            if (read(ends_[0], &letter, 1) != 1 || letter == '\n')
                break;
            line += letter;
        }
        return line;
    }

private:
    std::array<int, 2> ends_{-1, -1};
};

/// Xvfb with one screen of the given size.
Command memoryServer(const XServer::Options& options) {
    Command command;
    command.program = "Xvfb";
    command.arguments = {"-screen", "0",
                         std::to_string(options.width) + "x" + std::to_string(options.height) +
                             "x24",
                         // Nothing here renders by OpenGL, whose start takes a server's longest.
                         "-extension", "GLX"};
    return command;
}

/// Xorg, whose screen adapts to its monitors.
Command outputsServer(const XServer::Options& options) {
    const auto folder = options.errors.parent_path();
    writeFile(folder / "xorg.conf", outputsConfiguration);
    Command command;
    // Not the one in PATH, which is setuid root on some systems.
    command.program = "/usr/lib/xorg/Xorg";
    command.arguments = {"-config", (folder / "xorg.conf").string(), "-logfile",
                         (folder / "xorg.log").string()};
    return command;
}

std::string pathVariable() {
    const char* path = std::getenv("PATH");
    return path == nullptr ? "/usr/bin:/bin" : path;
}

}

// Servers that choose a number at the same time may choose the same one, and a program that was
// started late must not connect to a later server with the same number.
XServer::XServer(const Options& options) {
    constexpr int attempts = 5;
    std::random_device entropy;
    std::uniform_int_distribution<int> numbers{100, 59'999};
    for (int i = 0; i < attempts; ++i) {
        if (start(options, numbers(entropy)))
            return;
    }
    throw std::runtime_error{"the X server does not start"};
}

bool XServer::start(const Options& options, int number) {
    Pipe numbers;
    display_ = ":" + std::to_string(number);
    Command command = options.outputs ? outputsServer(options) : memoryServer(options);
    // Without -noreset the server discards its monitors when its last client disconnects.
    const std::vector<std::string> common{"-displayfd", std::to_string(numbers.writingEnd()),
                                          "-noreset", "-nolisten", "tcp"};
    command.arguments.insert(command.arguments.begin(), display_);
    command.arguments.insert(command.arguments.end(), common.begin(), common.end());
    if (!options.randr) {
        command.arguments.emplace_back("-extension");
        command.arguments.emplace_back("RANDR");
    }
    command.environment = {{"PATH", pathVariable()}};
    command.errors = options.errors;
    command.inherited = numbers.writingEnd();
    process_.emplace(command);
    numbers.closeWritingEnd();
    return numbers.readLine() == std::to_string(number);
}

}
