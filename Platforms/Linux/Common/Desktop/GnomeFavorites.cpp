#include "Desktop/GnomeFavorites.hpp"

#include "Desktop/PinnedApps.hpp"

#include <algorithm>
#include <ranges>

namespace vireline::xdg {
namespace {

/// The variable lists desktops from the most specific to the most general: "ubuntu:GNOME".
bool names(std::string_view currentDesktop, std::string_view desktop) {
    return std::ranges::any_of(currentDesktop | std::views::split(':'),
                               [&](const auto& name) { return std::ranges::equal(name, desktop); });
}

}

GnomeFavorites::GnomeFavorites(std::string_view currentDesktop, const SettingsStorage& storage,
                               const ApplicationCatalog& catalog)
    : isGnome_(names(currentDesktop, "GNOME")), storage_(storage), catalog_(catalog) {}

std::optional<PropertyList> GnomeFavorites::read() {
    static constexpr std::string_view extension = ".desktop";
    std::vector<std::string> bundleIDs = favorites()->get();
    for (std::string& id : bundleIDs) {
        if (id.ends_with(extension))
            id.resize(id.size() - extension.size());
    }
    return PinnedApps::tiles(bundleIDs, catalog_);
}

Subscription GnomeFavorites::observe(std::function<void()> handler) {
    return exists() ? favorites()->observe(std::move(handler)) : Subscription{};
}

StringListSetting* GnomeFavorites::favorites() const {
    if (!isGnome_)
        return nullptr;
    if (!favorites_)
        favorites_ = StringListSetting::find(storage_, "org.gnome.shell", "favorite-apps", nullptr);
    return favorites_->get();
}

}
