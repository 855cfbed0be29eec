#include "Peers/Peer.hpp"

#include <sstream>

namespace vireline::desktop {
namespace {

/// A panel whose launchers are lined up from its leading edge.
Peer panel(const std::string& name, std::vector<std::string> command, int pitch) {
    Peer peer;
    peer.name = name;
    peer.package = name;
    peer.command = std::move(command);
    peer.launchers = [pitch](const PixelRect& frame) {
        const int y = frame.center().y;
        return Line{{frame.x + 1, y}, {frame.x + comparedLaunchers * pitch - 1, y}};
    };
    return peer;
}

/// Its default settings without the clock and the tray, which the others do not have either.
void configureTint2(VirtualDesktop& desktop, std::span<const App> apps) {
    std::istringstream delivered{readFile("/etc/xdg/tint2/tint2rc")};
    std::ostringstream settings;
    for (std::string line; std::getline(delivered, line);) {
        if (line.starts_with("panel_items"))
            settings << "panel_items = LT\n";
        else if (line.starts_with("panel_size"))
            settings << "panel_size = 100% " << panelThickness << '\n';
        else if (line.starts_with("launcher_icon_size"))
            settings << "launcher_icon_size = " << launcherIconSize << '\n';
        else if (!line.starts_with("launcher_item_app"))
            settings << line << '\n';
        if (line.starts_with("launcher_icon_size")) {
            settings << "launcher_icon_theme = Papirus\n";
            for (const App& app : apps)
                settings << "launcher_item_app = " << desktop.home().entry(app.id).string() << '\n';
        }
    }
    writeFile(desktop.home().folder() / ".config/tint2/tint2rc", settings.str());
}

/// A panel on the first display with launchers and a task list.
void configureXfce(VirtualDesktop& desktop, std::span<const App> apps) {
    const auto configuration = desktop.home().folder() / ".config/xfce4";
    std::ostringstream ids;
    std::ostringstream plugins;
    int id = 0;
    for (const App& app : apps) {
        const auto plugin = std::to_string(++id);
        const auto item = app.id + ".desktop";
        writeFile(configuration / "panel" / ("launcher-" + plugin) / item,
                  readFile(desktop.home().entry(app.id)));
        ids << "<value type='int' value='" << plugin << "'/>";
        plugins << "<property name='plugin-" << plugin << "' type='string' value='launcher'>"
                << "<property name='items' type='array'><value type='string' value='" << item
                << "'/></property></property>\n";
    }
    ++id;
    std::ostringstream channel;
    channel << "<?xml version='1.0' encoding='UTF-8'?>\n"
               "<channel name='xfce4-panel' version='1.0'>\n"
               "<property name='configver' type='int' value='2'/>\n"
               "<property name='panels' type='array'><value type='int' value='1'/>\n"
               "<property name='panel-1' type='empty'>"
               "<property name='position' type='string' value='p=8;x=0;y=0'/>"
               "<property name='output-name' type='string' value='Primary'/>"
               "<property name='length' type='uint' value='100'/>"
               "<property name='position-locked' type='bool' value='true'/>"
               "<property name='icon-size' type='uint' value='"
            << launcherIconSize << "'/><property name='size' type='uint' value='" << panelThickness
            << "'/><property name='plugin-ids' type='array'>" << ids.str()
            << "<value type='int' value='" << id
            << "'/></property></property></property>\n"
               "<property name='plugins' type='empty'>\n"
            << plugins.str() << "<property name='plugin-" << id
            << "' type='string' value='tasklist'/></property>\n</channel>\n";
    writeFile(configuration / "xfconf/xfce-perchannel-xml/xfce4-panel.xml", channel.str());
}

/// As above.
void configureLxqt(VirtualDesktop& desktop, std::span<const App> apps) {
    const auto configuration = desktop.home().folder() / ".config/lxqt";
    std::ostringstream settings;
    settings << "panels=panel1\n[panel1]\nplugins=quicklaunch, taskbar\nposition=Bottom\n"
                "desktop=0\npanelSize="
             << panelThickness << "\niconSize=" << launcherIconSize
             << "\n[quicklaunch]\ntype=quicklaunch\nalignment=Left\n";
    int number = 0;
    for (const App& app : apps)
        settings << "apps\\" << ++number << "\\desktop=" << desktop.home().entry(app.id).string()
                 << '\n';
    settings << "apps\\size=" << number << "\n[taskbar]\ntype=taskbar\n";
    writeFile(configuration / "panel.conf", settings.str());
    writeFile(configuration / "lxqt.conf", "[General]\nicon_theme=Papirus\n");
    // As in its own session; otherwise it finds no icons.
    desktop.environment()["QT_QPA_PLATFORMTHEME"] = "lxqt";
}

/// It has no launchers with icons, but clickable texts, over which the cursor changes, and the
/// active window's title.
void configurePolybar(VirtualDesktop& desktop, std::span<const App> apps) {
    std::ostringstream modules;
    std::ostringstream settings;
    int number = 0;
    for (const App& app : apps) {
        const auto module = "launcher" + std::to_string(number++);
        modules << ' ' << module;
        settings << "[module/" << module << "]\ntype = custom/text\ncontent = " << app.name
                 << "\ncontent-padding = 1\nclick-left = gtk-launch " << app.id << '\n';
    }
    settings << "[module/title]\ntype = internal/xwindow\n"
                "[bar/launchers]\nmonitor = "
             << desktop.displays().monitors.front().name
             << "\nwidth = 100%\nheight = " << panelThickness
             << "\nbottom = true\nbackground = #c0202020\nforeground = #ffffff\n"
                "font-0 = DejaVu Sans:size=12\ncursor-click = pointer\nmodules-left ="
             << modules.str() << "\nmodules-center = title\n";
    writeFile(desktop.home().folder() / ".config/polybar/config.ini", settings.str());
}

Peer configured(Peer peer, void (*configure)(VirtualDesktop&, std::span<const App>)) {
    peer.configure = configure;
    return peer;
}

}

std::vector<Peer> panels() {
    constexpr int textPitch = 51;
    return {configured(panel("tint2", {"tint2"}, 46), configureTint2),
            configured(panel("xfce4-panel", {"xfce4-panel", "--disable-wm-check"}, panelThickness),
                       configureXfce),
            configured(panel("lxqt-panel", {"lxqt-panel"}, 52), configureLxqt),
            configured(panel("polybar", {"polybar", "launchers"}, textPitch), configurePolybar)};
}

}
