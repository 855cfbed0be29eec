/// The platform's table of well-known apps, for desktops that keep no list of their own.
#pragma once

#include "Desktop/Pinned/PinnedApps.hpp"
#include "Desktop/Pinned/PinnedAppsSource.hpp"

namespace vireline::xdg {

class WellKnownApps final : public PinnedAppsSource {
public:
    explicit WellKnownApps(const ApplicationCatalog& catalog) : catalog_(catalog) {}

    [[nodiscard]] bool exists() const override { return true; }

    [[nodiscard]] std::optional<PropertyList> read() override {
        return PinnedApps::tiles(catalog_.wellKnownBundleIDs(), catalog_);
    }

    /// The table never changes.
    [[nodiscard]] Subscription observe(std::function<void()>) override { return {}; }

private:
    const ApplicationCatalog& catalog_;
};

}
