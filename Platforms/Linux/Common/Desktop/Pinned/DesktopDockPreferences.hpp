/// The apps pinned in the desktop's own dock, from the first source that exists on this desktop: a
/// property-list file, GNOME's favourites, Plank's launchers, and finally the platform's table of
/// well-known apps.
#pragma once

#include "Desktop/Pinned/PinnedAppsSource.hpp"
#include "Desktop/StringListSetting.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"
#include "Platform/Applications/DockPreferences.hpp"
#include "Platform/Files/FileSystem.hpp"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace vireline::xdg {

class DesktopDockPreferences final : public DockPreferences {
public:
    /// The desktop environment of this process.
    struct Surroundings {
        FileURL home;
        FileURL configHome;
        /// As `DesktopNames::current` returns them.
        std::vector<std::string> desktopNames;
        SettingsStorage settings;
    };

    /// The references must outlive this object.
    DesktopDockPreferences(const Surroundings& surroundings, const FileSystem& fileSystem,
                           const ApplicationCatalog& catalog);

    /// The list of the first source that exists. If that one cannot be read, returns nullopt; later
    /// sources are not tried.
    [[nodiscard]] std::optional<PropertyList> persistentApps() override;

    /// Notifies when the list in use changes, or when another source takes its place.
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override;

private:
    static constexpr std::size_t sourceCount = 4;

    [[nodiscard]] std::size_t inUse() const;
    void watchUpTo(std::size_t last);
    void sourceChanged();

    std::array<std::unique_ptr<PinnedAppsSource>, sourceCount> sources_;
    /// Subscriptions to the source in use and to those with higher priority. Others are not
    /// watched.
    std::array<Subscription, sourceCount> watches_;
    std::optional<std::size_t> watched_;
    CallbackList<> changes_;
    Lifetime lifetime_;
};

}
