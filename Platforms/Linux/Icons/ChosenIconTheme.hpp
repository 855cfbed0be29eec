/// Which icon theme this desktop uses, whatever desktop it is.
#pragma once

#include "Icons/IconTheme.hpp"
#include "Icons/XSettings.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline::x11::ChosenIconTheme {

/// Text files that may name the theme.
struct Files {
    /// KDE's, asked first under KDE only.
    std::vector<std::string> kdeglobals;
    /// GTK's settings.ini, the user's before the system's.
    std::vector<std::string> gtkSettings;
    bool isKDE = false;
    /// Those of them that are the user's own, and change when another theme is chosen.
    std::vector<std::string> ofUser{};
};

[[nodiscard]] Files userFiles();

/// The first theme that is installed: of the settings daemon, of the files, of the well-known ones;
/// "hicolor" if there is none.
[[nodiscard]] std::string name(const IconTheme::Folders& folders, const XSettings::Texts& settings,
                               const Files& files);

}
