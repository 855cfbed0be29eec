#include "VirtualDesktop/SwaySession.hpp"

#include "VirtualDesktop/Home.hpp"
#include "VirtualDesktop/Waiting.hpp"

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
/// Of the menus of Qt's style that the program uses without a desktop's settings.
constexpr Colour menuColour{0xff, 0xff, 0xff};
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

/// FNV-1a, as documented for the program's log.
std::uint32_t idOf(std::string_view name) {
    std::uint32_t hash = 2166136261U;
    for (const char letter : name)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
    return hash;
}

/// The bounding rectangle of everything in the picture that is not the empty desktop.
PixelRect content(const Picture& picture) {
    int left = picture.width();
    int top = picture.height();
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.at(x, y) == background)
                continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = std::max(bottom, y + 1);
        }
    }
    return right == 0 ? PixelRect{} : PixelRect{left, top, right - left, bottom - top};
}

void demand(bool holds, const char* what) {
    if (!holds)
        throw std::runtime_error{what};
}

}

SwaySession::SwaySession(const XClient& client, const std::string& display, fs::path folder,
                         const std::vector<Monitor>& monitors, std::map<std::string, double> scales)
    : client_(client), folder_(std::move(folder)), scales_(std::move(scales)) {
    if (!monitors.empty())
        origin_ = {monitors.front().frame.x, monitors.front().frame.y};
    makeAtoms(client);
    fs::create_directories(folder_);
    start(display, monitors.size());
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        std::optional<Output> output;
        demand(eventually([&] { return (output = newOutput()).has_value(); }),
               "sway shows no window for an output");
        outputs_.push_back(*output);
    }
    std::ranges::sort(outputs_, {}, &Output::name);
    for (std::size_t i = 0; i < monitors.size(); ++i)
        place(outputs_[i], monitors[i]);
    takeKeyboard();
}

/// Without that, keys would reach sway only while the pointer is over one of its windows.
void SwaySession::takeKeyboard() const {
    if (!outputs_.empty())
        xcb_set_input_focus(client_.get(), XCB_INPUT_FOCUS_POINTER_ROOT, outputs_.front().window,
                            XCB_CURRENT_TIME);
    client_.sync();
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

/// One whose window is not known yet.
std::optional<SwaySession::Output> SwaySession::newOutput() const {
    for (const xcb_window_t window : client_.children(client_.root())) {
        const std::string title = client_.text(window, "_NET_WM_NAME");
        if (title.starts_with(windowTitle) && client_.isViewable(window) &&
            std::ranges::find(outputs_, window, &Output::window) == outputs_.end())
            return Output{title.substr(windowTitle.size()), window, {}};
    }
    return std::nullopt;
}

void SwaySession::place(Output& output, const Monitor& monitor) const {
    output.monitor = monitor;
    const auto& frame = monitor.frame;
    const std::array<std::uint32_t, 4> values{
        static_cast<std::uint32_t>(frame.x), static_cast<std::uint32_t>(frame.y),
        static_cast<std::uint32_t>(frame.width), static_cast<std::uint32_t>(frame.height)};
    xcb_configure_window(client_.get(), output.window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    client_.sync();
    control_.command("output " + output.name + " position " + std::to_string(frame.x - origin_.x) +
                     ' ' + std::to_string(frame.y - origin_.y) + " scale " +
                     std::to_string(scale(monitor)));
}

void SwaySession::close(const Output& output) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = output.window;
    message.type = client_.atom("WM_PROTOCOLS");
    message.data.data32[0] = client_.atom("WM_DELETE_WINDOW");
    xcb_send_event(client_.get(), 0, output.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    client_.sync();
    demand(eventually([&] { return !client_.frame(output.window).has_value(); }),
           "sway does not remove an output");
}

void SwaySession::setMonitors(const std::vector<Monitor>& monitors) {
    std::erase_if(outputs_, [&](const Output& output) {
        const bool stays =
            std::ranges::find(monitors, output.monitor.name, &Monitor::name) != monitors.end();
        if (!stays)
            close(output);
        return !stays;
    });
    for (const Monitor& monitor : monitors) {
        const auto known = std::ranges::find_if(
            outputs_, [&](const Output& output) { return output.monitor.name == monitor.name; });
        if (known != outputs_.end()) {
            if (known->monitor != monitor)
                place(*known, monitor);
            continue;
        }
        control_.command("create_output");
        std::optional<Output> made;
        demand(eventually([&] { return (made = newOutput()).has_value(); }), "sway adds no output");
        place(*made, monitor);
        outputs_.push_back(*made);
    }
    takeKeyboard();
}

std::map<std::string, std::uint32_t> SwaySession::displayIDs() const {
    std::map<std::string, std::uint32_t> ids;
    for (const Output& output : outputs_)
        ids[output.monitor.name] = idOf(output.name);
    return ids;
}

std::string SwaySession::outputOf(const std::string& monitor) const {
    const auto found = std::ranges::find_if(
        outputs_, [&](const Output& output) { return output.monitor.name == monitor; });
    return found == outputs_.end() ? std::string{} : found->name;
}

std::vector<PixelRect> SwaySession::menus() const {
    std::vector<PixelRect> menus;
    for (const Output& output : outputs_) {
        const auto& frame = output.monitor.frame;
        for (PixelRect menu : emptied(output).areas(menuColour)) {
            menu.x += frame.x;
            menu.y += frame.y;
            menus.push_back(menu);
        }
    }
    return menus;
}

std::vector<DockWindow> SwaySession::shown() const {
    std::vector<DockWindow> docks;
    for (const Output& output : outputs_) {
        const auto& frame = output.monitor.frame;
        const PixelRect seen = content(emptied(output));
        if (seen != PixelRect{}) {
            docks.push_back({idOf(output.name),
                             {frame.x + seen.x, frame.y + seen.y, seen.width, seen.height},
                             output.window});
        }
    }
    std::ranges::sort(docks, {}, &DockWindow::displayID);
    return docks;
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
        outputs_, [&](const Output& output) { return output.monitor.frame.contains(place); });
    if (on == outputs_.end())
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
        const auto on = std::ranges::find_if(outputs_, [&](const Output& output) {
            return frameOf(output).contains(window.frame.center());
        });
        if (on == outputs_.end())
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

Picture SwaySession::emptied(const Output& output) const {
    const auto& frame = output.monitor.frame;
    Picture picture = Picture::ofScreen(client_, frame);
    std::vector<PixelRect> covers = ignored_;
    for (const auto& window : windows()) {
        if (window.isVisible)
            covers.push_back(window.frame);
    }
    for (const PixelRect& cover : covers) {
        const int right = std::min(cover.right(), frame.right());
        const int bottom = std::min(cover.bottom(), frame.bottom());
        for (int y = std::max(cover.y, frame.y); y < bottom; ++y) {
            for (int x = std::max(cover.x, frame.x); x < right; ++x)
                picture.set(x - frame.x, y - frame.y, background);
        }
    }
    return picture;
}

void SwaySession::kill() const {
    sway_->signal(SIGKILL);
}

}
