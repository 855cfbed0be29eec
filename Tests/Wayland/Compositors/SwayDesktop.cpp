#include "Wayland/Compositors/SwayDesktop.hpp"

#include "Compositors/Sway/SwayConnection.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace vireline::wayland {
namespace {

namespace fs = std::filesystem;

/// As root, sway refuses to run.
constexpr uid_t nobody = 65534;
constexpr double requestSeconds = 10;

std::string fileIn(const fs::path& folder, const std::string& beginning) {
    for (const auto& entry : fs::directory_iterator{folder}) {
        if (entry.path().filename().string().starts_with(beginning))
            return entry.path();
    }
    return {};
}

desktop::Environment environment(const fs::path& folder) {
    const char* const path = std::getenv("PATH");
    return {{"PATH", path == nullptr ? "/usr/bin" : path},
            {"HOME", folder},
            {"XDG_RUNTIME_DIR", folder},
            {"XDG_CONFIG_HOME", folder / "config"},
            {"LANG", "C.UTF-8"}};
}

desktop::Command swayCommand(const fs::path& folder) {
    const fs::path settings = folder / "sway.conf";
    std::ofstream{settings} << "xwayland disable\n"
                               "output HEADLESS-1 mode 1280x720 position 0 0\n"
                               "output HEADLESS-2 mode 1280x720 position 1280 0\n"
                               "focus_follows_mouse no\n";
    auto variables = environment(folder);
    variables.insert({{"WLR_BACKENDS", "headless"},
                      {"WLR_RENDERER", "pixman"},
                      {"WLR_LIBINPUT_NO_DEVICES", "1"},
                      {"WLR_HEADLESS_OUTPUTS", "2"}});
    std::vector<std::string> arguments{"sway", "--config", settings};
    if (geteuid() == 0) {
        if (chown(folder.c_str(), nobody, nobody) != 0)
            throw std::runtime_error{"cannot make the folder another user's"};
        const auto user = std::to_string(nobody);
        arguments.insert(arguments.begin(), {"setpriv", "--reuid=" + user, "--regid=" + user,
                                             "--clear-groups", "--pdeathsig=KILL"});
    }
    const std::string program = arguments.front();
    arguments.erase(arguments.begin());
    return {.program = program,
            .arguments = std::move(arguments),
            .environment = std::move(variables),
            .output = {},
            .errors = folder / "sway.log",
            .inherited = {}};
}

}

SwayDesktop::SwayDesktop() {
    chmod(folder_.path().c_str(), S_IRWXU);
    sway_.emplace(swayCommand(folder_.path()));
    const bool isUp = desktop::eventually([this] {
        socket_ = fileIn(folder_.path(), "sway-ipc.");
        return !socket_.empty() && !fileIn(folder_.path(), "wayland-").empty() &&
               SwayConnection::open(socket_) != nullptr;
    });
    if (!isUp)
        throw std::runtime_error{"sway does not start"};
}

SwayDesktop::~SwayDesktop() = default;

std::string SwayDesktop::display() const {
    return folder_.path() / "wayland-1";
}

desktop::ChildProcess& SwayDesktop::run(std::vector<std::string> arguments) {
    auto variables = environment(folder_.path());
    ++started_;
    arguments.insert(arguments.end(), {"--sizes", sizes()});
    // Qt's plugin leaks what it knows about outputs.
    variables.insert({{"WAYLAND_DISPLAY", "wayland-1"},
                      {"QT_QPA_PLATFORM", "wayland"},
                      {"ASAN_OPTIONS", "detect_leaks=0"}});
    return *programs_.emplace_back(std::make_unique<desktop::ChildProcess>(
        desktop::Command{.program = WAYLAND_TEST_APP,
                         .arguments = std::move(arguments),
                         .environment = std::move(variables),
                         .output = {},
                         .errors = {},
                         .inherited = {}}));
}

void SwayDesktop::closeAll() {
    programs_.clear();
    if (!desktop::eventually([this] { return tree().windows.empty(); }))
        throw std::runtime_error{"windows are left"};
    command("focus output HEADLESS-2");
    command("workspace 2");
    command("focus output HEADLESS-1");
    command("workspace 1");
}

SwayTree SwayDesktop::tree() const {
    const auto connection = SwayConnection::open(socket_);
    const auto reply = connection
                           ? connection->request(SwayMessageType::getTree, {}, requestSeconds)
                           : Result<std::string>{};
    return SwayTree::parse(reply.value_or("")).value_or(SwayTree{});
}

bool SwayDesktop::isSettled() const {
    std::string drawn;
    std::ifstream file{sizes()};
    for (std::string line; std::getline(file, line);)
        drawn = line;
    // The title bar and two borders.
    constexpr int border = 2;
    constexpr int titleBar = 25;
    const auto isDrawn = [&](const SwayWindow& window) {
        return drawn == std::to_string(std::lround(window.frame.width) - 2 * border) + 'x' +
                            std::to_string(std::lround(window.frame.height) - titleBar - border);
    };
    const auto all = tree().windows;
    return std::ranges::any_of(all, [&](const SwayWindow& window) {
        return window.processIdentifier == programs_.back()->pid() && isDrawn(window);
    });
}

std::vector<SwayWindow> SwayDesktop::windows(const std::string& appID) const {
    auto windows = tree().windows;
    std::erase_if(windows, [&appID](const SwayWindow& window) { return window.appID != appID; });
    std::ranges::sort(windows, {}, &SwayWindow::id);
    return windows;
}

bool SwayDesktop::command(const std::string& text) const {
    const auto connection = SwayConnection::open(socket_);
    const auto reply = connection
                           ? connection->request(SwayMessageType::runCommand, text, requestSeconds)
                           : Result<std::string>{};
    return SwayMessages::reportsSuccess(reply.value_or(""));
}

}
