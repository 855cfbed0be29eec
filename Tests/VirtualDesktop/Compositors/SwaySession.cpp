#include "VirtualDesktop/Compositors/SwaySession.hpp"

#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/Session/Home.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

constexpr Colour background{0x33, 0x55, 0x77};
constexpr std::string_view configuration = "xwayland disable\n"
                                           "output * bg #335577 solid_color\n"
                                           "focus_follows_mouse no\n"
                                           "default_border none\n"
                                           "default_floating_border none\n"
                                           "for_window [shell=\".*\"] floating enable\n";
constexpr std::string_view windowTitle = "wlroots - ";

/// It asks only for atoms that exist already, and without them its windows have no titles and
/// cannot be closed.
void makeAtoms(const XClient& client) {
    for (const auto* name :
         {"WM_PROTOCOLS", "WM_DELETE_WINDOW", "_NET_WM_NAME", "UTF8_STRING", "_VARIABLE_REFRESH"})
        (void)client.atom(name);
}

std::string fileIn(const fs::path& folder, std::string_view beginning) {
    for (const auto& entry : fs::directory_iterator{folder}) {
        const auto name = entry.path().filename().string();
        if (name.starts_with(beginning) && !name.ends_with(".lock"))
            return entry.path();
    }
    return {};
}

void demand(bool holds, const char* what) {
    if (!holds)
        throw std::runtime_error{what};
}

}

SwaySession::SwaySession(const XClient& client, const std::string& display, fs::path folder,
                         const std::vector<Monitor>& monitors, std::map<std::string, double> scales)
    : CompositorSession(client, background)
    , folder_(std::move(folder))
    , scales_(std::move(scales)) {
    if (!monitors.empty())
        origin_ = {monitors.front().frame.x, monitors.front().frame.y};
    makeAtoms(client);
    fs::create_directories(folder_);
    start(display, monitors.size());
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        std::optional<Output> output;
        demand(eventually([&] { return (output = newOutput(windowTitle)).has_value(); }),
               "sway shows no window for an output");
        outputs().push_back(*output);
    }
    std::ranges::sort(outputs(), {}, &Output::name);
    for (std::size_t i = 0; i < monitors.size(); ++i)
        place(outputs()[i], monitors[i]);
    demand(eventually([this] {
               return std::ranges::all_of(
                   outputs(), [this](const Output& output) { return showsBackground(output); });
           }),
           "sway does not draw its background");
    takeKeyboard();
}

/// Without that, keys would reach sway only while the pointer is over one of its windows.
void SwaySession::takeKeyboard() const {
    if (!outputs().empty())
        xcb_set_input_focus(client().get(), XCB_INPUT_FOCUS_POINTER_ROOT, outputs().front().window,
                            XCB_CURRENT_TIME);
    client().sync();
}

/// As root, sway refuses to run.
void SwaySession::start(const std::string& display, std::size_t outputs) {
    writeFile(folder_ / "config", configuration);
    fs::permissions(folder_, fs::perms::owner_all);
    const char* const path = std::getenv("PATH");
    Command command{.program = "sway",
                    .arguments = {"--config", (folder_ / "config").string()},
                    .environment = {{"PATH", path == nullptr ? "/usr/bin:/bin" : path},
                                    {"HOME", folder_.string()},
                                    {"XDG_RUNTIME_DIR", folder_.string()},
                                    {"LANG", "C.UTF-8"},
                                    {"DISPLAY", display},
                                    {"WLR_BACKENDS", "x11"},
                                    {"WLR_RENDERER", "pixman"},
                                    {"WLR_X11_OUTPUTS", std::to_string(outputs)}},
                    .output = {},
                    .errors = folder_.string() + ".log",
                    .inherited = {}};
    constexpr uid_t otherUser = 65534;
    if (geteuid() == 0) {
        demand(chown(folder_.c_str(), otherUser, otherUser) == 0,
               "sway's folder cannot be given to another user");
        const auto user = std::to_string(otherUser);
        const std::array<std::string, 5> prefix{"--reuid=" + user, "--regid=" + user,
                                                "--clear-groups", "--pdeathsig=KILL", "sway"};
        command.program = "setpriv";
        command.arguments.insert(command.arguments.begin(), prefix.begin(), prefix.end());
    }
    sway_.emplace(command);
    demand(eventually([this] {
               socket_ = fileIn(folder_, "sway-ipc.");
               return !socket_.empty() && !fileIn(folder_, "wayland-").empty();
           }),
           "sway does not start");
    control_ = SwayControl{socket_};
}

Environment SwaySession::environment() const {
    return {{"WAYLAND_DISPLAY", fileIn(folder_, "wayland-")},
            {"SWAYSOCK", socket_},
            {"XDG_SESSION_TYPE", "wayland"},
            {"XDG_CURRENT_DESKTOP", "sway"}};
}

void SwaySession::place(Output& output, const Monitor& monitor) const {
    placeWindow(output, monitor);
    const auto& frame = monitor.frame;
    control_.command("output " + output.name + " position " + std::to_string(frame.x - origin_.x) +
                     ' ' + std::to_string(frame.y - origin_.y) + " scale " +
                     std::to_string(scale(monitor)));
}

void SwaySession::close(const Output& output) const {
    client().send(output.window, "WM_PROTOCOLS", {client().atom("WM_DELETE_WINDOW")});
    client().sync();
    demand(eventually([&] { return !client().frame(output.window).has_value(); }),
           "sway does not remove an output");
}

void SwaySession::setMonitors(const std::vector<Monitor>& monitors) {
    std::erase_if(outputs(), [&](const Output& output) {
        const bool stays =
            std::ranges::find(monitors, output.monitor.name, &Monitor::name) != monitors.end();
        if (!stays)
            close(output);
        return !stays;
    });
    for (const Monitor& monitor : monitors) {
        const auto known = std::ranges::find_if(
            outputs(), [&](const Output& output) { return output.monitor.name == monitor.name; });
        if (known != outputs().end()) {
            if (known->monitor != monitor)
                place(*known, monitor);
            continue;
        }
        control_.command("create_output");
        std::optional<Output> made;
        demand(eventually([&] { return (made = newOutput(windowTitle)).has_value(); }),
               "sway adds no output");
        place(*made, monitor);
        outputs().push_back(*made);
    }
    takeKeyboard();
}

double SwaySession::scale(const Monitor& monitor) const {
    const auto found = scales_.find(monitor.name);
    return found == scales_.end() ? 1 : found->second;
}

PixelRect SwaySession::frameOf(const Output& output) const {
    const auto& frame = output.monitor.frame;
    const double factor = scale(output.monitor);
    return {frame.x - origin_.x, frame.y - origin_.y,
            static_cast<int>(std::lround(frame.width / factor)),
            static_cast<int>(std::lround(frame.height / factor))};
}

PixelPoint SwaySession::toLayout(PixelPoint place) const {
    const auto on = std::ranges::find_if(
        outputs(), [&](const Output& output) { return output.monitor.frame.contains(place); });
    if (on == outputs().end())
        return {place.x - origin_.x, place.y - origin_.y};
    const auto& pixels = on->monitor.frame;
    const PixelRect layout = frameOf(*on);
    const double factor = scale(on->monitor);
    return {layout.x + static_cast<int>(std::lround((place.x - pixels.x) / factor)),
            layout.y + static_cast<int>(std::lround((place.y - pixels.y) / factor))};
}

std::vector<SwayControl::Window> SwaySession::windows() const {
    auto windows = control_.windows();
    for (auto& window : windows) {
        const auto on = std::ranges::find_if(outputs(), [&](const Output& output) {
            return frameOf(output).contains(window.frame.center());
        });
        if (on == outputs().end())
            continue;
        const auto& corner = on->monitor.frame;
        const PixelRect layout = frameOf(*on);
        const double factor = scale(on->monitor);
        const auto pixels = [factor](int points) {
            return static_cast<int>(std::lround(points * factor));
        };
        window.frame = {corner.x + pixels(window.frame.x - layout.x),
                        corner.y + pixels(window.frame.y - layout.y), pixels(window.frame.width),
                        pixels(window.frame.height)};
    }
    return windows;
}

std::vector<PixelRect> SwaySession::windowFrames() const {
    std::vector<PixelRect> frames;
    for (const auto& window : windows()) {
        if (window.isVisible)
            frames.push_back(window.frame);
    }
    return frames;
}

void SwaySession::kill() const {
    sway_->signal(SIGKILL);
}

}
