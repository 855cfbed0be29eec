#include "Desktop/Pinned/DesktopDockPreferences.hpp"

#include "Desktop/Pinned/GnomeFavorites.hpp"
#include "Desktop/Pinned/PlankLaunchers.hpp"
#include "Desktop/Pinned/PropertyListPins.hpp"
#include "Desktop/Pinned/WellKnownApps.hpp"

#include <algorithm>

namespace vireline::xdg {

DesktopDockPreferences::DesktopDockPreferences(const Surroundings& surroundings,
                                               const FileSystem& fileSystem,
                                               const ApplicationCatalog& catalog)
    : sources_{
          std::make_unique<PropertyListPins>(
              fileSystem, surroundings.home.appending("Library/Preferences/com.apple.dock.plist")),
          std::make_unique<GnomeFavorites>(surroundings.desktopNames, surroundings.settings,
                                           catalog),
          std::make_unique<PlankLaunchers>(fileSystem, surroundings.configHome,
                                           surroundings.settings),
          std::make_unique<WellKnownApps>(catalog)} {}

std::optional<PropertyList> DesktopDockPreferences::persistentApps() {
    return sources_.at(inUse())->read();
}

Subscription DesktopDockPreferences::observeChanges(std::function<void()> handler) {
    auto subscription = changes_.add(std::move(handler));
    watchUpTo(inUse());
    return subscription;
}

std::size_t DesktopDockPreferences::inUse() const {
    const auto found = std::ranges::find_if(sources_, &PinnedAppsSource::exists);
    return static_cast<std::size_t>(found - sources_.begin());
}

void DesktopDockPreferences::watchUpTo(std::size_t last) {
    if (watched_ == last)
        return;
    watched_ = last;
    // Resubscribe to each: what can be watched depends on whether the source exists.
    for (std::size_t i = 0; i < sourceCount; ++i) {
        watches_.at(i) = i <= last
                             ? sources_.at(i)->observe(lifetime_.guard([this] { sourceChanged(); }))
                             : Subscription{};
    }
}

void DesktopDockPreferences::sourceChanged() {
    watchUpTo(inUse());
    changes_.notify();
}

}
