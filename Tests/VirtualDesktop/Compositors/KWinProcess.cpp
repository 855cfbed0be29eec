#include "VirtualDesktop/Compositors/KWinProcess.hpp"

#include "VirtualDesktop/Buses/BusClient.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/Session/Home.hpp"

#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

constexpr const char* kwinProgram = "/usr/bin/kwin_wayland";

/// Starts nothing by itself, unlike the usual session bus.
std::string busSettings(const std::string& address) {
    return R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>)" +
           address + R"(</listen><auth>EXTERNAL</auth><policy context="default">
<allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
</policy></busconfig>)";
}

/// KWin 6 finds programs' desktop entries only through the applications menu, which otherwise comes
/// with Plasma.
constexpr std::string_view applicationsMenu =
    "<Menu><Name>Applications</Name><DefaultAppDirs/><Include><All/></Include></Menu>";

std::string pathForKWin() {
    const char* const path = std::getenv("PATH");
    return path == nullptr ? "/usr/bin:/bin" : path;
}

Environment kwinEnvironment(const KWinProcess::Options& options, const std::string& bus) {
    Environment environment{{"PATH", pathForKWin()},
                            {"HOME", options.folder / "home"},
                            {"XDG_RUNTIME_DIR", options.folder},
                            {"XDG_DATA_DIRS", options.dataFolders + ":/usr/local/share:/usr/share"},
                            {"XDG_CURRENT_DESKTOP", "KDE"},
                            {"DBUS_SESSION_BUS_ADDRESS", bus},
                            {"LANG", "C.UTF-8"},
                            // Paints without OpenGL, which starts sooner.
                            {"KWIN_COMPOSE", "Q"}};
    if (options.permitsEverything)
        environment["KWIN_WAYLAND_NO_PERMISSION_CHECKS"] = "1";
    return environment;
}

std::vector<std::string> kwinArguments(const KWinProcess::Options& options) {
    std::vector<std::string> arguments{"--no-lockscreen",
                                       "--no-global-shortcuts",
                                       "--no-kactivities",
                                       "--socket",
                                       "wayland-kwin",
                                       "--output-count",
                                       std::to_string(options.outputs),
                                       "--width",
                                       std::to_string(options.width),
                                       "--height",
                                       std::to_string(options.height)};
    if (options.xDisplay.empty())
        arguments.emplace_back("--virtual");
    else
        arguments.insert(arguments.end(), {"--x11-display", options.xDisplay});
    return arguments;
}

void requireOfKWin(bool holds, const char* what) {
    if (!holds)
        throw std::runtime_error{what};
}

}

KWinProcess::KWinProcess(const Options& options) : folder_(options.folder), address_(options.bus) {
    writeFile(folder_ / "home/.config/menus/applications.menu", applicationsMenu);
    fs::permissions(folder_, fs::perms::owner_all);
    if (address_.empty())
        startBus();
    // The installed file asks for a capability, which containers refuse; a copy does not.
    const fs::path program = folder_ / "kwin_wayland";
    fs::copy_file(kwinProgram, program, fs::copy_options::overwrite_existing);
    kwin_.emplace(Command{.program = program,
                          .arguments = kwinArguments(options),
                          .environment = kwinEnvironment(options, address_),
                          .output = {},
                          .errors = folder_.string() + ".log",
                          .inherited = {}});
    const BusClient bus{address_};
    requireOfKWin(eventually([&] { return fs::exists(display()) && bus.hasOwner("org.kde.KWin"); }),
                  "KWin does not start");
}

void KWinProcess::startBus() {
    address_ = "unix:path=" + (folder_ / "bus").string();
    writeFile(folder_ / "bus.conf", busSettings(address_));
    bus_.emplace(Command{.program = "dbus-daemon",
                         .arguments = {"--config-file=" + (folder_ / "bus.conf").string(),
                                       "--nofork", "--nopidfile"},
                         .environment = {{"PATH", pathForKWin()}},
                         .output = {},
                         .errors = folder_.string() + "-bus.log",
                         .inherited = {}});
    requireOfKWin(eventually([&] { return BusClient::answers(address_); }),
                  "the bus does not start");
}

Environment KWinProcess::environment() const {
    return {{"WAYLAND_DISPLAY", display()},
            {"DBUS_SESSION_BUS_ADDRESS", address_},
            {"XDG_SESSION_TYPE", "wayland"},
            {"XDG_CURRENT_DESKTOP", "KDE"}};
}

}
