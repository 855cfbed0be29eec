/// The preferences of the desktop's own dock. Read only.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/PropertyList.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>
#include <optional>
#include <span>

namespace vireline {

class DockPreferences {
public:
    virtual ~DockPreferences() = default;

    /// The current "persistent-apps" value, synchronised with the preferences' writer first;
    /// nullopt if there is none.
    [[nodiscard]] virtual std::optional<PropertyList> persistentApps() = 0;

    /// Calls `handler` when the dock announces that its preferences changed
    /// ("com.apple.dock.prefchanged").
    [[nodiscard]] virtual Subscription observeChanges(std::function<void()> handler) = 0;
};

class PropertyListDecoder {
public:
    virtual ~PropertyListDecoder() = default;

    /// Decodes any of the platform's property-list formats. Fails if the bytes are not a property
    /// list.
    [[nodiscard]] virtual Result<PropertyList> decode(std::span<const std::byte> bytes) const = 0;
};

}
