/// The preferences of Apple's Dock, which are only read.
#pragma once

#include "Platform/Applications/DockPreferences.hpp"

namespace vireline::macos {

class CFDockPreferences final : public DockPreferences {
public:
    [[nodiscard]] std::optional<PropertyList> persistentApps() override;
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override;
};

}
