#include "Desktop/SettingsPanes.hpp"

#include <algorithm>
#include <array>

namespace vireline::x11::SettingsPanes {
namespace {

struct Pane {
    std::string_view desktop;
    std::string_view entry;
};

/// The accessibility settings of each desktop that has some.
constexpr std::array accessibility{
    Pane{"Budgie", "budgie-universal-access-panel"},
    Pane{"GNOME", "gnome-universal-access-panel"},
    Pane{"Unity", "gnome-universal-access-panel"},
    Pane{"KDE", "kcm_access"},
    Pane{"MATE", "mate-at-properties"},
    Pane{"X-Cinnamon", "cinnamon-settings-universal-access"},
    Pane{"XFCE", "xfce4-accessibility-settings"},
};

}

std::vector<std::string_view> entries(std::string_view paneURL,
                                      std::span<const std::string> desktopNames) {
    std::vector<std::string_view> found;
    if (!paneURL.ends_with("?Privacy_Accessibility"))
        return found;
    for (const std::string& desktop : desktopNames) {
        const auto pane = std::ranges::find(accessibility, desktop, &Pane::desktop);
        if (pane != accessibility.end())
            found.push_back(pane->entry);
    }
    return found;
}

}
