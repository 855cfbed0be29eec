#include "Peers/Peer.hpp"

#include <filesystem>
#include <map>
#include <sstream>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

void configureVireline(VirtualDesktop& desktop, std::span<const App> apps, bool magnifies) {
    // The program always shows the file manager, so it is made the first of the apps.
    desktop.home().setFileManager(apps.front().id);
    desktop.home().pin(apps.subspan(1));
    std::ostringstream preferences;
    preferences << R"({"onboardingCompleted": true, "iconSize": )" << launcherIconSize
                << R"(, "magnificationEnabled": )" << (magnifies ? "true" : "false")
                << R"(, "magnification": )" << peersMagnification << "}";
    desktop.home().writePreferences(preferences.str());
}

/// The tiles are centred in the window, which is longer to leave room for their growth.
Line middle(const PixelRect& frame, int length) {
    const int x = frame.center().x;
    const int y = frame.bottom() - launcherIconSize / 2;
    return {{x - length / 2, y}, {x + length / 2, y}};
}

void configurePlank(VirtualDesktop& desktop, std::span<const App> apps) {
    const auto configuration = desktop.home().folder() / ".config";
    std::string items;
    for (const App& app : apps) {
        const auto item = app.name + ".dockitem";
        writeFile(configuration / "plank/dock1/launchers" / item,
                  "[PlankDockItemPreferences]\nLauncher=file://" +
                      desktop.home().entry(app.id).string() + "\n");
        items += (items.empty() ? "'" : ", '") + item + "'";
    }
    std::ostringstream settings;
    settings << "[net/launchpad/plank/docks/dock1]\ndock-items=[" << items
             << "]\nicon-size=" << launcherIconSize
             << "\nzoom-enabled=true\nzoom-percent=" << 100 * peersMagnification
             << "\nhide-mode='none'\nshow-dock-item=false\nlock-items=true\n";
    writeFile(configuration / "glib-2.0/settings/keyfile", settings.str());
    desktop.environment()["GSETTINGS_BACKEND"] = "keyfile";
}

Peer plank() {
    constexpr int tile = 54;
    Peer peer;
    peer.name = "Plank";
    peer.package = "plank";
    peer.command = {"plank", "-n", "dock1"};
    peer.configure = configurePlank;
    peer.launchers = [](const PixelRect& frame) { return middle(frame, comparedLaunchers * tile); };
    return peer;
}

/// The file's content with other values for these keys.
std::string withValues(const fs::path& file, const std::map<std::string, std::string>& values) {
    std::istringstream in{readFile(file)};
    std::string result;
    for (std::string line; std::getline(in, line);) {
        const auto key = line.substr(0, line.find_last_not_of(' ', line.find('=') - 1) + 1);
        const auto value = values.find(key);
        result += value == values.end() ? line : key + "=" + value->second;
        result += '\n';
    }
    return result;
}

/// Its default settings, with its simplest kind of dock.
void configureCairoDock(VirtualDesktop& desktop, std::span<const App> apps) {
    const fs::path delivered{"/usr/share/cairo-dock"};
    const auto configuration = desktop.home().folder() / ".config/cairo-dock";
    const auto side = std::to_string(launcherIconSize);
    writeFile(configuration / "current_theme/cairo-dock.conf",
              withValues(delivered / "cairo-dock.conf",
                         {{"launcher size", side + ";" + side},
                          {"zoom max", std::to_string(peersMagnification)}}));
    int order = 0;
    for (const App& app : apps) {
        const auto number = std::to_string(order++);
        writeFile(configuration / "current_theme/launchers" / (number + app.id + ".desktop"),
                  "[Desktop Entry]\nContainer=_MainDock_\nOrigin=" +
                      desktop.home().entry(app.id).string() + "\nName=" + app.name +
                      "\nIcon=" + app.icon + "\nExec=" + app.id + "\nStartupWMClass=" + app.id +
                      "\nOrder=" + number + "\nIcon Type=0\nType=Application\n");
    }
    // Otherwise it shows its welcome dialog.
    writeFile(configuration / ".cairo-dock", "[Launch]\nlast version=3.4.1\n[Gui]\nmode=0\n");
}

Peer cairoDock() {
    Peer peer;
    peer.name = "cairo-dock";
    peer.package = "cairo-dock-core";
    // Without OpenGL, and without the watchdog that restarts it after a crash.
    peer.command = {"cairo-dock", "--cairo", "--testing"};
    peer.configure = configureCairoDock;
    peer.launchers = [](const PixelRect& frame) {
        return middle(frame, comparedLaunchers * launcherIconSize);
    };
    return peer;
}

}

Peer vireline(const std::string& name, bool magnifies) {
    Peer peer;
    peer.name = name;
    peer.command = {TESTED_PROGRAM};
    peer.configure = [magnifies](VirtualDesktop& desktop, std::span<const App> apps) {
        configureVireline(desktop, apps, magnifies);
    };
    peer.launchers = [](const PixelRect& frame) {
        const DockOrdering::Counts counts{.pinned = comparedLaunchers};
        return middle(frame, static_cast<int>(DockOrdering::stripWidth(counts, launcherIconSize)));
    };
    return peer;
}

std::vector<Peer> docks() {
    return {vireline("Vireline", false), vireline("Vireline, magnified", true), plank(),
            cairoDock()};
}

}
