/// A short tour of the program on a headless desktop: shows its features step by step, and leaves a
/// picture of each step and the program's log.
#include "Tour/TourSession.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

struct TourOptions {
    fs::path folder = "build/tour";
    bool stay = false;
    bool wayland = false;
};

TourOptions parse(const std::vector<std::string>& arguments) {
    TourOptions options;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--stay")
            options.stay = true;
        else if (*argument == "--wayland")
            options.wayland = true;
        else if (*argument == "--folder" && argument + 1 != arguments.end())
            options.folder = *++argument;
        else
            throw std::runtime_error{"usage: DesktopTour [--folder <folder>] [--wayland] [--stay]"};
    }
    return options;
}

/// A tile for an app that is installed on this computer.
Pin installed(const std::string& id, const std::string& name) {
    return {id, name, fs::path{"/usr/share/applications"} / (id + ".desktop")};
}

Pin fileManager() {
    return installed("pcmanfm", "File Manager");
}

Pin terminal() {
    return installed("debian-xterm", "Terminal");
}

Pin editor() {
    return installed("org.xfce.mousepad", "Text Editor");
}

/// Apps of kinds found on every desktop.
std::vector<App> scenery() {
    const auto app = [](const std::string& name, const std::string& icon) {
        return App{"org.example." + name, name, {}, {"--size", "520x360"}, {}, icon};
    };
    return {app("Browser", "web-browser"),
            app("Mail", "internet-mail"),
            app("Calendar", "office-calendar"),
            app("Music", "multimedia-audio-player"),
            app("Pictures", "multimedia-photo-viewer"),
            app("Software", "system-software-install")};
}

class Tour {
public:
    explicit Tour(TourOptions options)
        : options_(std::move(options))
        , session_(tourSession(options_.wayland))
        , desktop_(session_->programs(), setUp()) {}

    void take() {
        fs::remove_all(options_.folder);
        fs::create_directories(options_.folder);
        populate();
        desktop_.runVireline();
        seeDocks();
        hover();
        launch();
        hide();
        openMenu();
        unplug();
        plugIn();
        showSettings();
        welcome();
        fs::copy_file(desktop_.log().file(), options_.folder / "vireline.log");
        std::cout << "The pictures and the log are in " << fs::absolute(options_.folder).string()
                  << '\n';
    }

    [[nodiscard]] bool stays() const noexcept { return options_.stay; }

    /// Keeps the desktop open until the user ends the tour.
    void stay() {
        const auto port = options_.folder / "vnc-port";
        desktop_.run("x11vnc", {"-display", desktop_.display(), "-localhost", "-forever", "-shared",
                                "-nopw", "-quiet", "-autoport", "5900", "-flag", port.string()});
        if (!eventually([&] { return readFile(port).starts_with("PORT="); }))
            throw std::runtime_error{"x11vnc does not start"};
        const auto number = std::stoi(readFile(port).substr(std::string_view{"PORT="}.size()));
        std::cout << "\nThe desktop " << desktop_.display() << " stays open. To look at it:\n"
                  << "  vncviewer localhost:" << number << "\n"
                  << "from another computer, after\n"
                  << "  ssh -L " << number << ":localhost:" << number << " <this computer>\n"
                  << "Ctrl-C ends it." << '\n'
                  << std::flush;
        sigset_t ends;
        sigemptyset(&ends);
        sigaddset(&ends, SIGINT);
        sigaddset(&ends, SIGTERM);
        int received = 0;
        sigwait(&ends, &received);
    }

private:
    [[nodiscard]] VirtualDesktop::Options setUp() const {
        VirtualDesktop::Options options;
        options.monitors = session_->monitors();
        options.manager = session_->manager();
        options.compositor = true;
        options.sessionBus = true;
        options.installedApps = true;
        options.width = 3960;
        options.height = 1520;
        return options;
    }

    /// Sets up everything except the program: the session, icon theme, apps.
    void populate() {
        session_->decorate(desktop_);
        auto& home = desktop_.home();
        writeFile(home.folder() / ".config/gtk-3.0/settings.ini",
                  "[Settings]\ngtk-icon-theme-name=Papirus\n");
        writePreferences(/*isWelcomed=*/true);
        pins_ = {fileManager(), terminal(), editor()};
        for (const auto& app : scenery())
            pins_.push_back({app.id, app.name, home.install(app)});
        home.pin(pins_);
        home.setFileManager(fileManager().id);
        desktop_.launch(scenery().front());
    }

    void writePreferences(bool isWelcomed) {
        desktop_.home().writePreferences(
            std::string{R"({"onboardingCompleted": )"} + (isWelcomed ? "true" : "false") +
            R"(, "iconSize": 48, "magnificationEnabled": true, "magnification": 1.5})");
    }

    void seeDocks() {
        if (!eventually([&] { return docks() == 2; }))
            throw std::runtime_error{"the docks do not come up"};
        picture("docks", "a dock on every display but the one with the other panel");
    }

    void hover() {
        desktop_.pointer().moveTo(tile(3));
        picture("hover", "tiles grow under the pointer, and a label tells the name");
    }

    void launch() {
        desktop_.pointer().click(tile(editorIndex));
        if (!eventually([&] { return session_->shows(desktop_, editorsWindow); }))
            throw std::runtime_error{"a click does not launch the editor"};
        picture("launched", "a click launches: the editor has a window, its tile a dot");
    }

    void hide() {
        desktop_.pointer().click(tile(editorIndex));
        if (!eventually([&] { return !session_->shows(desktop_, editorsWindow); }))
            throw std::runtime_error{"a second click does not hide the editor"};
        picture("hidden", "another click hides it; the dot stays");
        desktop_.pointer().click(tile(editorIndex));
        if (!eventually([&] { return session_->shows(desktop_, editorsWindow); }))
            throw std::runtime_error{"a third click does not bring the editor back"};
    }

    void openMenu() {
        const auto before = Picture::ofScreen(desktop_.client());
        desktop_.pointer().click(tile(editorIndex), Pointer::Button::secondary);
        if (!eventually([&] { return session_->showsMenu(desktop_, before); }))
            throw std::runtime_error{"no menu opens"};
        picture("menu", "a secondary click opens the tile's menu");
        desktop_.keyboard().type(Keyboard::escape);
        desktop_.pointer().moveTo(desktop_.monitor("main").frame.center());
    }

    void unplug() {
        auto monitors = session_->monitors();
        monitors.pop_back();
        desktop_.setMonitors(monitors);
        if (!eventually([&] { return docks() == 1; }))
            throw std::runtime_error{"the dock of the display that is gone stays"};
        picture("unplugged", "its display unplugged, the dock on the right is gone");
    }

    void plugIn() {
        desktop_.setMonitors(session_->monitors());
        if (!eventually([&] { return docks() == 2; }))
            throw std::runtime_error{"the display that was plugged in again gets no dock"};
        picture("plugged-in", "the display is back, and so is its dock");
    }

    void showSettings() {
        desktop_.run(TESTED_PROGRAM, {});
        if (!eventually([&] { return session_->shows(desktop_, programsWindow); }))
            throw std::runtime_error{"a second start does not show the settings"};
        picture("settings", "a second start shows the settings of the first");
    }

    void welcome() {
        desktop_.stopVireline();
        if (!eventually([&] { return !session_->shows(desktop_, programsWindow); }))
            throw std::runtime_error{"the settings stay without the program"};
        writePreferences(/*isWelcomed=*/false);
        desktop_.runVireline();
        if (!eventually([&] { return session_->shows(desktop_, programsWindow); }))
            throw std::runtime_error{"the first start shows no welcome"};
        picture("welcome", "what a first start shows");
    }

    /// Under sway this counts windows too, but those open on the main display.
    [[nodiscard]] std::ptrdiff_t docks() const {
        return std::ranges::count_if(desktop_.docks().shown(), [&](const DockWindow& dock) {
            return dock.displayID != desktop_.displayIDOf("main");
        });
    }

    /// The centre of a tile in the dock that the tour uses.
    [[nodiscard]] PixelPoint tile(int index) const {
        PanelPlanner::Request request;
        request.counts.pinned = static_cast<int>(pins_.size());
        request.maxIconSize = 48;
        request.magnification = 1.5;
        const auto planned = desktop_.planned(request);
        const auto dock = std::ranges::find(planned, session_->dock(),
                                            [](const auto& plan) { return plan.monitor.name; });
        return DockLayout{*dock, request.counts, request.maxIconSize}.icon(index);
    }

    /// Takes a picture when nothing moves any more, or after a timeout.
    void picture(const std::string& name, std::string_view caption) {
        using namespace std::chrono_literals;
        auto seen = Picture::ofScreen(desktop_.client());
        static_cast<void>(eventually(
            [&] {
                auto now = Picture::ofScreen(desktop_.client());
                const bool isStill = now == seen;
                seen = std::move(now);
                return isStill;
            },
            3s));
        const auto file = std::to_string(++pictures_) + "-" + name + ".png";
        if (!seen.writePNG(options_.folder / file))
            throw std::runtime_error{"cannot write " + file};
        std::cout << file << ": " << caption << '\n' << std::flush;
    }

    static constexpr int editorIndex = 2;
    static constexpr const char* editorsWindow = "org.xfce.mousepad";
    static constexpr const char* programsWindow = "vireline";

    TourOptions options_;
    std::unique_ptr<TourSession> session_;
    VirtualDesktop desktop_;
    std::vector<Pin> pins_;
    int pictures_ = 0;
};

void run(const std::vector<std::string>& arguments) {
    const auto options = parse(arguments);
    // Blocked until the tour waits for them, so that the desktop is always shut down in order.
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGINT);
    sigaddset(&ends, SIGTERM);
    if (options.stay)
        sigprocmask(SIG_BLOCK, &ends, nullptr);
    Tour tour{options};
    tour.take();
    if (tour.stays())
        tour.stay();
}

}
}

int main(int count, char** arguments) {
    try {
        vireline::desktop::run({arguments + 1, arguments + count});
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "tour: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
