#include "Applications/Entries/WellKnownApplications.hpp"

#include <algorithm>
#include <array>

namespace vireline::xdg::WellKnownApplications {
namespace {

using IDs = std::string_view;

constexpr std::array fileManagers{IDs{"org.gnome.Nautilus"},
                                  IDs{"org.kde.dolphin"},
                                  IDs{"nemo"},
                                  IDs{"caja"},
                                  IDs{"thunar"},
                                  IDs{"pcmanfm"},
                                  IDs{"pcmanfm-qt"},
                                  IDs{"io.elementary.files"}};
constexpr std::array browsers{IDs{"firefox"},           IDs{"firefox-esr"}, IDs{"firefox_firefox"},
                              IDs{"google-chrome"},     IDs{"chromium"},    IDs{"brave-browser"},
                              IDs{"org.gnome.Epiphany"}};
constexpr std::array mailers{IDs{"thunderbird"}, IDs{"net.thunderbird.Thunderbird"},
                             IDs{"org.gnome.Evolution"}, IDs{"org.gnome.Geary"},
                             IDs{"org.kde.kmail2"}};
constexpr std::array calendars{IDs{"org.gnome.Calendar"}, IDs{"org.kde.korganizer"}};
constexpr std::array players{IDs{"org.gnome.Music"},    IDs{"rhythmbox"},
                             IDs{"org.kde.elisa"},      IDs{"spotify"},
                             IDs{"com.spotify.Client"}, IDs{"vlc"}};
constexpr std::array editors{IDs{"org.gnome.TextEditor"},
                             IDs{"org.gnome.gedit"},
                             IDs{"org.kde.kate"},
                             IDs{"org.kde.kwrite"},
                             IDs{"org.xfce.mousepad"},
                             IDs{"xed"},
                             IDs{"pluma"}};
constexpr std::array viewers{IDs{"org.gnome.eog"}, IDs{"org.gnome.Loupe"}, IDs{"org.kde.gwenview"},
                             IDs{"org.xfce.ristretto"}};
constexpr std::array terminals{IDs{"org.gnome.Terminal"}, IDs{"org.gnome.Console"},
                               IDs{"org.kde.konsole"},    IDs{"xfce4-terminal"},
                               IDs{"mate-terminal"},      IDs{"kitty"},
                               IDs{"Alacritty"},          IDs{"xterm"},
                               IDs{"debian-xterm"}};

constexpr std::array<Role, 8> knownRoles{{
    {"inode/directory", fileManagers},
    {"x-scheme-handler/https", browsers},
    {"x-scheme-handler/mailto", mailers},
    {"text/calendar", calendars},
    {"audio/mpeg", players},
    {"text/plain", editors},
    {"image/png", viewers},
    // No content type has a terminal as its handler.
    {"", terminals},
}};

constexpr std::array otherApps{IDs{"libreoffice-writer"},
                               IDs{"code"},
                               IDs{"org.gnome.Settings"},
                               IDs{"gnome-control-center"},
                               IDs{"systemsettings"},
                               IDs{"xfce-settings-manager"},
                               IDs{"org.gnome.Software"},
                               IDs{"org.kde.discover"},
                               IDs{"gimp"},
                               IDs{"org.gnome.Calculator"},
                               IDs{"org.kde.kcalc"},
                               IDs{"galculator"}};

}

std::span<const Role> roles() {
    return knownRoles;
}

std::span<const std::string_view> others() {
    return otherApps;
}

bool isHelper(std::string_view id) {
    return id == "enlightenment_filemanager" || id == "display" || id.starts_with("display-im");
}

std::string firstInstalled(std::span<const std::string_view> ids,
                           const std::function<bool(const std::string&)>& isInstalled) {
    for (const auto id : ids) {
        if (std::string name{id}; isInstalled(name))
            return name;
    }
    return {};
}

std::vector<std::string> choose(const std::function<std::string(std::string_view)>& handlerFor,
                                const std::function<bool(const std::string&)>& isInstalled,
                                const std::function<bool(const std::string&)>& isUnfit) {
    std::vector<std::string> chosen;
    const auto isFit = [&](const std::string& id) { return isInstalled(id) && !isUnfit(id); };
    const auto add = [&](std::string id) {
        const bool isNew = !id.empty() && std::ranges::find(chosen, id) == chosen.end();
        if (isNew && chosen.size() < count && !isUnfit(id))
            chosen.push_back(std::move(id));
    };
    for (const auto& role : roles()) {
        std::string handler =
            role.contentType.empty() ? std::string{} : handlerFor(role.contentType);
        const bool isUsable = !handler.empty() && isFit(handler);
        add(isUsable ? std::move(handler) : firstInstalled(role.commonIDs, isFit));
    }
    for (const auto id : others()) {
        if (std::string name{id}; isInstalled(name))
            add(std::move(name));
    }
    for (const auto& role : roles())
        add(std::string{role.commonIDs.front()});
    for (const auto id : others())
        add(std::string{id});
    return chosen;
}

}
