/// The favourite apps in GNOME's dash.
#pragma once

#include "Desktop/Pinned/PinnedAppsSource.hpp"
#include "Desktop/StringListSetting.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"

#include <span>
#include <string>

namespace vireline::xdg {

class GnomeFavorites final : public PinnedAppsSource {
public:
    GnomeFavorites(std::span<const std::string> desktopNames, const SettingsStorage& storage,
                   const ApplicationCatalog& catalog);

    [[nodiscard]] bool exists() const override { return favorites() != nullptr; }
    [[nodiscard]] std::optional<PropertyList> read() override;
    [[nodiscard]] Subscription observe(std::function<void()> handler) override;

private:
    [[nodiscard]] StringListSetting* favorites() const;

    bool isGnome_;
    SettingsStorage storage_;
    const ApplicationCatalog& catalog_;
    /// Looked up on first use, and never on other desktops, because opening GSettings is slow.
    mutable std::optional<std::unique_ptr<StringListSetting>> favorites_;
};

}
