/// A small X program that plays the apps and panels on the virtual desktop. Its arguments tell what
/// it does besides opening a window.
#include "VirtualDesktop/Screen/XClient.hpp"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace vireline::desktop {
namespace {

struct Strut {
    std::string edge;
    int thickness = 0;
};

struct Options {
    std::string windowClass = "testapp";
    std::string windowInstance;
    std::string title = "Test app";
    int delay = 0;
    /// Its windows open once this file exists.
    std::string awaited;
    int windows = 1;
    PixelRect frame{0, 0, 320, 200};
    bool isPlaced = false;
    /// Where it moves its windows on its own, and how many milliseconds after showing them.
    std::optional<PixelPoint> laterPlace;
    int laterDelay = 0;
    std::uint32_t colour = 0xf0f0e8;
    std::string type = "NORMAL";
    /// The desktop on which its windows open.
    std::optional<std::uint32_t> desktop;
    std::optional<Strut> strut;
    std::optional<std::uint32_t> icon;
    /// Additional text properties, by name.
    std::map<std::string, std::string> properties;
    bool skipTaskbar = false;
    bool ignoreClose = false;
    bool crash = false;
    bool keepStartup = false;
    std::string record;
    /// Arguments that are not options, such as files to open.
    std::vector<std::string> operands;
};

int number(std::string_view text, int base = 10) {
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, base);
    return value;
}

/// Parses two numbers separated by one letter.
std::pair<int, int> pair(std::string_view text, char between) {
    const auto middle = text.find(between);
    if (middle == std::string_view::npos)
        return {};
    return {number(text.substr(0, middle)), number(text.substr(middle + 1))};
}

Options parse(const std::vector<std::string>& arguments) {
    Options options;
    using Setter = std::function<void(const std::string&)>;
    const std::map<std::string, Setter> withValue{
        {"--class", [&](const auto& value) { options.windowClass = value; }},
        {"--instance", [&](const auto& value) { options.windowInstance = value; }},
        {"--title", [&](const auto& value) { options.title = value; }},
        {"--delay", [&](const auto& value) { options.delay = number(value); }},
        {"--wait-for", [&](const auto& value) { options.awaited = value; }},
        {"--windows", [&](const auto& value) { options.windows = number(value); }},
        {"--size",
         [&](const auto& value) {
             std::tie(options.frame.width, options.frame.height) = pair(value, 'x');
         }},
        {"--at",
         [&](const auto& value) {
             std::tie(options.frame.x, options.frame.y) = pair(value, ',');
             options.isPlaced = true;
         }},
        {"--later",
         [&](const auto& value) {
             const auto colon = value.find(':');
             options.laterDelay = number(value.substr(0, colon));
             const auto [x, y] = pair(value.substr(colon + 1), ',');
             options.laterPlace = PixelPoint{x, y};
         }},
        {"--desktop",
         [&](const auto& value) { options.desktop = static_cast<std::uint32_t>(number(value)); }},
        {"--colour",
         [&](const auto& value) {
             options.colour = static_cast<std::uint32_t>(number(value, 16));
         }},
        {"--type", [&](const auto& value) { options.type = value; }},
        {"--strut",
         [&](const auto& value) {
             const auto colon = value.find(':');
             options.strut = Strut{value.substr(0, colon), number(value.substr(colon + 1))};
             options.type = "DOCK";
         }},
        {"--icon",
         [&](const auto& value) { options.icon = static_cast<std::uint32_t>(number(value, 16)); }},
        {"--property",
         [&](const auto& value) {
             const auto equals = value.find('=');
             options.properties[value.substr(0, equals)] = value.substr(equals + 1);
         }},
        {"--record", [&](const auto& value) { options.record = value; }},
    };
    const std::map<std::string, bool*> flags{{"--skip-taskbar", &options.skipTaskbar},
                                             {"--ignore-close", &options.ignoreClose},
                                             {"--crash", &options.crash},
                                             {"--keep-startup", &options.keepStartup}};
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (const auto flag = flags.find(arguments[i]); flag != flags.end())
            *flag->second = true;
        else if (const auto setter = withValue.find(arguments[i]);
                 setter != withValue.end() && i + 1 < arguments.size())
            setter->second(arguments[++i]);
        else
            options.operands.push_back(arguments[i]);
    }
    if (options.windowInstance.empty())
        options.windowInstance = options.windowClass;
    return options;
}

class TestApp {
public:
    TestApp(Options options, const std::string& display)
        : options_(std::move(options)), client_(display) {
        if (const char* id = std::getenv("DESKTOP_STARTUP_ID"))
            startupID_ = id;
    }

    void openWindows() {
        for (int i = 0; i < options_.windows; ++i) {
            const auto window = client_.createWindow(options_.frame, options_.colour);
            describe(window);
            if (options_.strut)
                reserve(window, *options_.strut);
            client_.map(window);
            windows_.push_back(window);
        }
        if (!startupID_.empty() && !options_.keepStartup)
            endStartup();
        client_.sync();
        shown_ = std::chrono::steady_clock::now();
    }

    /// Runs until the last window is closed or the X server exits.
    void run() {
        pollfd readable{xcb_get_file_descriptor(client_.get()), POLLIN, 0};
        while (!windows_.empty() && xcb_connection_has_error(client_.get()) == 0) {
            while (const auto event = client_.pollEvent())
                handle(*event);
            xcb_flush(client_.get());
            if (!windows_.empty() && poll(&readable, 1, untilMove()) == 0)
                moveByItself();
        }
    }

    void record(const std::string& line) const {
        if (!options_.record.empty())
            std::ofstream{options_.record, std::ios::app} << line << '\n';
    }

private:
    /// In milliseconds; -1 if there is nothing to do.
    [[nodiscard]] int untilMove() const {
        using std::chrono::milliseconds;
        if (!options_.laterPlace || hasMoved_)
            return -1;
        const auto due = shown_ + milliseconds{options_.laterDelay};
        const auto left = std::chrono::ceil<milliseconds>(due - std::chrono::steady_clock::now());
        return static_cast<int>(std::max<milliseconds::rep>(0, left.count()));
    }

    void moveByItself() {
        hasMoved_ = true;
        const auto card32 = [](int value) { return static_cast<std::uint32_t>(value); };
        const std::array place{card32(options_.laterPlace->x), card32(options_.laterPlace->y)};
        for (const xcb_window_t window : windows_) {
            xcb_configure_window(client_.get(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                                 place.data());
        }
        record("moved by itself");
    }

    void describe(xcb_window_t window) const {
        client_.setText(window, "WM_CLASS", "STRING",
                        options_.windowInstance + '\0' + options_.windowClass + '\0');
        client_.setText(window, "WM_NAME", "STRING", options_.title);
        client_.setText(window, "_NET_WM_NAME", options_.title);
        client_.setAtoms(window, "WM_PROTOCOLS", {"WM_DELETE_WINDOW"});
        client_.setAtoms(window, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_" + options_.type});
        client_.setItems(window, "_NET_WM_PID", XCB_ATOM_CARDINAL,
                         {static_cast<std::uint32_t>(getpid())});
        if (options_.skipTaskbar)
            client_.setAtoms(window, "_NET_WM_STATE", {"_NET_WM_STATE_SKIP_TASKBAR"});
        if (!startupID_.empty())
            client_.setText(window, "_NET_STARTUP_ID", startupID_);
        if (options_.desktop)
            client_.setItems(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {*options_.desktop});
        if (options_.icon)
            setIcon(window, *options_.icon);
        if (options_.isPlaced)
            placeByHand(window);
        for (const auto& [name, value] : options_.properties)
            client_.setText(window, name, value);
    }

    void setIcon(xcb_window_t window, std::uint32_t colour) const {
        constexpr std::uint32_t side = 64;
        constexpr std::uint32_t opaque = 0xff000000;
        std::vector<std::uint32_t> icon(2 + side * side, opaque | colour);
        icon[0] = side;
        icon[1] = side;
        client_.setItems(window, "_NET_WM_ICON", XCB_ATOM_CARDINAL, icon);
    }

    /// Marks the position as chosen by the user, so that the window manager respects it.
    void placeByHand(xcb_window_t window) const {
        constexpr std::uint32_t userPosition = 1;
        std::vector<std::uint32_t> hints(18, 0);
        hints[0] = userPosition;
        hints[1] = static_cast<std::uint32_t>(options_.frame.x);
        hints[2] = static_cast<std::uint32_t>(options_.frame.y);
        client_.setItems(window, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
    }

    void reserve(xcb_window_t window, const Strut& strut) const {
        const PixelRect& frame = options_.frame;
        const int width = client_.screen().width_in_pixels;
        const int height = client_.screen().height_in_pixels;
        const auto card32 = [](int value) { return static_cast<std::uint32_t>(value); };
        // left, right, top, bottom, followed by a start and an end for each.
        std::vector<std::uint32_t> values(12, 0);
        if (strut.edge == "left")
            values = {card32(frame.right()),
                      0,
                      0,
                      0,
                      card32(frame.y),
                      card32(frame.bottom() - 1),
                      0,
                      0,
                      0,
                      0,
                      0,
                      0};
        else if (strut.edge == "right")
            values = {0,
                      card32(width - frame.x),
                      0,
                      0,
                      0,
                      0,
                      card32(frame.y),
                      card32(frame.bottom() - 1),
                      0,
                      0,
                      0,
                      0};
        else if (strut.edge == "top")
            values = {0,
                      0,
                      card32(frame.bottom()),
                      0,
                      0,
                      0,
                      0,
                      0,
                      card32(frame.x),
                      card32(frame.right() - 1),
                      0,
                      0};
        else
            values = {0,
                      0,
                      0,
                      card32(height - frame.y),
                      0,
                      0,
                      0,
                      0,
                      0,
                      0,
                      card32(frame.x),
                      card32(frame.right() - 1)};
        client_.setItems(window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, values);
        values.resize(4);
        client_.setItems(window, "_NET_WM_STRUT", XCB_ATOM_CARDINAL, values);
    }

    /// Broadcasts the end of the launch, in chunks of 20 bytes.
    void endStartup() const {
        const std::string message = "remove: ID=\"" + startupID_ + '"' + '\0';
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 8;
        event.window = windows_.front();
        event.type = client_.atom("_NET_STARTUP_INFO_BEGIN");
        constexpr std::size_t piece = 20;
        for (std::size_t start = 0; start < message.size(); start += piece) {
            std::ranges::fill(event.data.data8, std::uint8_t{0});
            const auto length = std::min(piece, message.size() - start);
            std::copy_n(message.begin() + static_cast<std::ptrdiff_t>(start), length,
                        std::begin(event.data.data8));
            sendEvent(client_.get(), client_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE, event);
            event.type = client_.atom("_NET_STARTUP_INFO");
        }
    }

    void handle(const xcb_generic_event_t& event) {
        switch (eventType(event)) {
        case XCB_CLIENT_MESSAGE:
            if (!options_.ignoreClose)
                close(as<xcb_client_message_event_t>(event).window);
            else
                record("asked to close");
            break;
        case XCB_BUTTON_PRESS: {
            const auto& press = as<xcb_button_press_event_t>(event);
            record("press " + std::to_string(press.root_x) + ' ' + std::to_string(press.root_y));
            break;
        }
        default:
            break;
        }
    }

    void close(xcb_window_t window) {
        record("closed");
        client_.destroy(window);
        std::erase(windows_, window);
    }

    Options options_;
    XClient client_;
    std::string startupID_;
    std::vector<xcb_window_t> windows_;
    std::chrono::steady_clock::time_point shown_;
    bool hasMoved_ = false;
};

int run(const std::vector<std::string>& arguments) {
    const Options options = parse(arguments);
    if (options.crash)
        std::abort();
    const char* display = std::getenv("DISPLAY");
    TestApp app{options, display == nullptr ? "" : display};
    for (const auto& operand : options.operands)
        app.record("open " + operand);
    app.record("started");
    std::this_thread::sleep_for(std::chrono::milliseconds{options.delay});
    constexpr std::chrono::milliseconds interval{10};
    const std::filesystem::path awaited = options.awaited;
    while (!awaited.empty() && !std::filesystem::exists(awaited)) {
        // The test is over.
        if (!std::filesystem::exists(awaited.parent_path()))
            return EXIT_FAILURE;
        std::this_thread::sleep_for(interval);
    }
    app.openWindows();
    app.run();
    return EXIT_SUCCESS;
}

}
}

int main(int count, char** arguments) {
    try {
        return vireline::desktop::run({arguments + 1, arguments + count});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
