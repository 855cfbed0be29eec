#include "Icons/Themes/ChosenIconTheme.hpp"

#include "Desktop/DesktopNames.hpp"
#include "Files/BoundedFile.hpp"
#include "Text/IniText.hpp"

#include <glib.h>

#include <algorithm>
#include <string_view>

namespace vireline::xdg::ChosenIconTheme {
namespace {

constexpr std::size_t maximumBytes = 1U << 20U;

void addFrom(const std::vector<std::string>& files, std::string_view group, std::string_view key,
             std::vector<std::string>& names) {
    for (const std::string& path : files) {
        const auto text = BoundedFile::read(path, maximumBytes);
        if (!text)
            continue;
        const IniText lines{*text};
        if (auto name = lines.value(group, key)) {
            if (name->size() >= 2 && name->starts_with('"') && name->ends_with('"'))
                name = name->substr(1, name->size() - 2);
            names.emplace_back(*name);
        }
    }
}

}

Files userFiles() {
    Files files;
    std::vector<std::string> folders{g_get_user_config_dir()};
    for (const char* const* folder = g_get_system_config_dirs(); *folder != nullptr; ++folder) {
        folders.emplace_back(*folder);
    }
    folders.emplace_back("/etc");
    for (const std::string& folder : folders) {
        files.kdeglobals.push_back(folder + "/kdeglobals");
        files.gtkSettings.push_back(folder + "/gtk-3.0/settings.ini");
        files.gtkSettings.push_back(folder + "/gtk-4.0/settings.ini");
    }
    const auto desktopNames = DesktopNames::current();
    files.isKDE = std::ranges::find(desktopNames, "KDE") != desktopNames.end();
    const std::string& config = folders.front();
    files.usersOwn = {config + "/gtk-3.0/settings.ini", config + "/gtk-4.0/settings.ini"};
    if (files.isKDE)
        files.usersOwn.push_back(config + "/kdeglobals");
    return files;
}

std::string name(const IconTheme::Folders& folders, const DesktopSettings::Texts& settings,
                 const Files& files) {
    std::vector<std::string> names;
    const auto told = settings.find("Net/IconThemeName");
    if (told != settings.end())
        names.push_back(told->second);
    if (files.isKDE)
        addFrom(files.kdeglobals, "Icons", "Theme", names);
    addFrom(files.gtkSettings, "Settings", "gtk-icon-theme-name", names);
    for (const char* wellKnown : {"Adwaita", "breeze", "Papirus", "Yaru", "gnome", "Tango"}) {
        names.emplace_back(wellKnown);
    }
    for (std::string& name : names) {
        if (IconTheme::isInstalled(folders, name))
            return std::move(name);
    }
    return "hicolor";
}

}
