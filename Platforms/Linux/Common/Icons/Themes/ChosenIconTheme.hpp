/// Determines which icon theme the desktop uses, on any desktop.
#pragma once

#include "Desktop/SettingsDaemon.hpp"
#include "Icons/Themes/IconTheme.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline::xdg::ChosenIconTheme {

/// Text files that may name the theme.
struct Files {
    /// KDE's settings; checked first under KDE, ignored elsewhere.
    std::vector<std::string> kdeglobals;
    /// GTK's settings.ini files, the user's before the system's.
    std::vector<std::string> gtkSettings;
    bool isKDE = false;
    /// The user's own files among these, which are written when another theme is chosen.
    std::vector<std::string> usersOwn{};
};

[[nodiscard]] Files userFiles();

/// The first installed theme of those named by the settings daemon, the files and the list of
/// well-known themes; "hicolor" if there is none.
[[nodiscard]] std::string name(const IconTheme::Folders& folders,
                               const DesktopSettings::Texts& settings, const Files& files);

}
