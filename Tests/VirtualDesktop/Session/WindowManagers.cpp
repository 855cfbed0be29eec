#include "VirtualDesktop/Session/WindowManagers.hpp"

#include "VirtualDesktop/Session/Home.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

/// Click to focus, new windows get the focus, and everything automatic is disabled.
constexpr std::string_view openboxConfiguration = R"(<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy><monitor>Any</monitor></placement>
  <theme><name>Clearlooks</name><animateIconify>no</animateIconify></theme>
  <desktops><number>2</number></desktops>
  <keyboard/>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
    </context>
    <context name="Frame">
      <mousebind button="A-Left" action="Drag"><action name="Move"/></mousebind>
    </context>
  </mouse>
</openbox_config>
)";

/// Compositing is set on the command line, which this must not contradict.
std::string xfwm4Configuration(bool composites) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfwm4" version="1.0">
  <property name="general" type="empty">
    <property name="click_to_focus" type="bool" value="true"/>
    <property name="focus_new" type="bool" value="true"/>
    <property name="use_compositing" type="bool" value=")" +
           std::string{composites ? "true" : "false"} + R"("/>
    <property name="placement_ratio" type="int" value="100"/>
    <property name="workspace_count" type="int" value="2"/>
  </property>
</channel>
)";
}

constexpr std::string_view kwinConfiguration = "[Desktops]\nNumber=2\nRows=1\n";

constexpr std::string_view mutterSettings = "[org/gnome/desktop/wm/preferences]\n"
                                            "num-workspaces=2\n\n"
                                            "[org/gnome/mutter]\n"
                                            "dynamic-workspaces=false\n";

constexpr std::string_view marcoSettings = "[org/mate/marco/general]\nnum-workspaces=2\n";

constexpr std::string_view icewmPreferences = "ShowTaskBar=0\n"
                                              "WorkspaceNames=\" 1 \", \" 2 \"\n";

/// Without the first line, i3 takes the file for one in an old format, which it converts, adding a
/// bar at the bottom of every output.
constexpr std::string_view i3Configuration = "# i3 config file (v4)\n"
                                             "font pango:monospace 8\n"
                                             "floating_modifier Mod1\n"
                                             "workspace_auto_back_and_forth no\n";

/// Two desktops on each monitor, also on those attached later; otherwise as in bspwm's example.
constexpr std::string_view bspwmConfiguration = R"(#!/bin/sh
for monitor in $(bspc query --monitors); do
    bspc monitor "$monitor" --reset-desktops "$monitor-1" "$monitor-2"
done
bspc config border_width 2
bspc config window_gap 12
bspc config split_ratio 0.52
bspc config remove_unplugged_monitors true
bspc config remove_disabled_monitors true
)";

/// What is the same for every start of a manager.
struct Kind {
    WindowManager manager;
    std::string_view name;
    std::string_view program;
    bool needsSessionBus = false;
    bool canComposite = false;
    bool handsOver = true;
};

constexpr std::array kinds{
    Kind{WindowManager::openbox, "openbox", "openbox"},
    Kind{WindowManager::xfwm4, "xfwm4", "xfwm4", /*needsSessionBus=*/true,
         /*canComposite=*/true},
    Kind{WindowManager::kwin, "kwin", "kwin_x11", /*needsSessionBus=*/true,
         /*canComposite=*/true},
    Kind{WindowManager::mutter, "mutter", "mutter", /*needsSessionBus=*/true,
         /*canComposite=*/true},
    Kind{WindowManager::marco, "marco", "marco", /*needsSessionBus=*/true,
         /*canComposite=*/true},
    Kind{WindowManager::icewm, "icewm", "icewm"},
    Kind{WindowManager::i3, "i3", "i3"},
    // It does not give way to another manager.
    Kind{WindowManager::awesome, "awesome", "awesome", /*needsSessionBus=*/true,
         /*canComposite=*/false, /*handsOver=*/false},
    Kind{WindowManager::bspwm, "bspwm", "bspwm", /*needsSessionBus=*/false, /*canComposite=*/false,
         /*handsOver=*/false},
    // Started by `startCompositor`.
    Kind{WindowManager::sway, "sway", "sway", /*needsSessionBus=*/false, /*canComposite=*/false,
         /*handsOver=*/false},
    Kind{WindowManager::kwinWayland, "kwin-wayland", "kwin_wayland", /*needsSessionBus=*/true,
         /*canComposite=*/false, /*handsOver=*/false},
};

const Kind& kindOf(WindowManager manager) {
    return *std::ranges::find(kinds, manager, &Kind::manager);
}

void keepSettingsInAFile(Environment& environment, const fs::path& folder,
                         std::string_view settings) {
    environment["GSETTINGS_BACKEND"] = "keyfile";
    writeFile(folder / "glib-2.0/settings/keyfile", settings);
}

/// Writes the configuration to `folder` and returns the arguments for starting the manager.
std::vector<std::string> configure(WindowManager manager, bool composites, const fs::path& folder,
                                   Environment& environment) {
    switch (manager) {
    case WindowManager::openbox:
        writeFile(folder / "rc.xml", openboxConfiguration);
        return {"--sm-disable", "--config-file", (folder / "rc.xml").string()};
    case WindowManager::xfwm4:
        writeFile(folder / "xfce4/xfconf/xfce-perchannel-xml/xfwm4.xml",
                  xfwm4Configuration(composites));
        return {composites ? "--compositor=on" : "--compositor=off"};
    case WindowManager::kwin:
        writeFile(folder / "kwinrc", kwinConfiguration);
        environment["KWIN_COMPOSE"] = composites ? "O2" : "N";
        return {};
    case WindowManager::mutter:
        keepSettingsInAFile(environment, folder, mutterSettings);
        return {"--x11", "--sm-disable"};
    case WindowManager::marco:
        keepSettingsInAFile(environment, folder, marcoSettings);
        return {"--sm-disable", composites ? "--composite" : "--no-composite"};
    case WindowManager::icewm:
        writeFile(folder / "preferences", icewmPreferences);
        environment["ICEWM_PRIVCFG"] = folder.string();
        return {};
    case WindowManager::i3:
        writeFile(folder / "config", i3Configuration);
        return {"-c", (folder / "config").string()};
    case WindowManager::awesome:
    case WindowManager::sway:
    case WindowManager::kwinWayland:
        return {};
    case WindowManager::bspwm:
        writeFile(folder / "bspwmrc", bspwmConfiguration);
        fs::permissions(folder / "bspwmrc", fs::perms::owner_all);
        return {"-c", (folder / "bspwmrc").string()};
    }
    return {};
}

}

std::string_view shortName(WindowManager manager) {
    return kindOf(manager).name;
}

std::optional<WindowManager> windowManagerNamed(std::string_view name) {
    const auto* const found = std::ranges::find(kinds, name, &Kind::name);
    if (found == kinds.end())
        return std::nullopt;
    return found->manager;
}

bool needsSessionBus(WindowManager manager) {
    return kindOf(manager).needsSessionBus;
}

bool canComposite(WindowManager manager) {
    return kindOf(manager).canComposite;
}

bool handsOver(WindowManager manager) {
    return kindOf(manager).handsOver;
}

Command windowManagerCommand(WindowManager manager, const ManagerOptions& options,
                             const fs::path& folder, Environment environment) {
    environment["XDG_CONFIG_HOME"] = folder.string();
    environment["NO_AT_BRIDGE"] = "1";
    auto arguments = configure(manager, options.composites, folder, environment);
    if (options.replaces && handsOver(manager))
        arguments.emplace_back("--replace");
    return {std::string{kindOf(manager).program},
            std::move(arguments),
            std::move(environment),
            {},
            folder.string() + ".log",
            {}};
}

}
