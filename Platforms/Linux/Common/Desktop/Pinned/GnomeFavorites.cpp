#include "Desktop/Pinned/GnomeFavorites.hpp"

#include "Desktop/Pinned/PinnedApps.hpp"

#include <algorithm>

namespace vireline::xdg {

GnomeFavorites::GnomeFavorites(std::span<const std::string> desktopNames,
                               const SettingsStorage& storage, const ApplicationCatalog& catalog)
    : isGnome_(std::ranges::find(desktopNames, "GNOME") != desktopNames.end())
    , storage_(storage)
    , catalog_(catalog) {}

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
