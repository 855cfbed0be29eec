/// What the desktop's own dock has pinned, from the first of several places where this desktop
/// keeps such a list: a property-list file, GNOME's favourites, Plank's launchers, and at last the
/// platform's table of well-known apps.
#pragma once

#include "Desktop/PinnedAppsSource.hpp"
#include "Desktop/StringListSetting.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/ApplicationCatalog.hpp"
#include "Platform/DockPreferences.hpp"
#include "Platform/FileSystem.hpp"

#include <array>
#include <memory>
#include <string>

namespace vireline::x11 {

class DesktopDockPreferences final : public DockPreferences {
public:
    /// The desktop as this process finds it.
    struct Surroundings {
        FileURL home;
        FileURL configHome;
        /// XDG_CURRENT_DESKTOP.
        std::string currentDesktop;
        SettingsStorage settings;
    };

    /// The references outlive this object.
    DesktopDockPreferences(const Surroundings& surroundings, const FileSystem& fileSystem,
                           const ApplicationCatalog& catalog);

    /// The list of the first place that exists. If that one cannot be read there is nothing; the
    /// next is not asked for it.
    [[nodiscard]] std::optional<PropertyList> persistentApps() override;

    /// Announces a change of the list in use, and that another one came into use.
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override;

private:
    static constexpr std::size_t sourceCount = 4;

    [[nodiscard]] std::size_t inUse() const;
    void watchUpTo(std::size_t last);
    void sourceChanged();

    std::array<std::unique_ptr<PinnedAppsSource>, sourceCount> sources_;
    /// Of the source in use and of those that would take its place. The others are left alone.
    std::array<Subscription, sourceCount> watches_;
    std::optional<std::size_t> watched_;
    CallbackList<> changes_;
    Lifetime lifetime_;
};

}
