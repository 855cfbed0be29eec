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

    /// The "persistent-apps" value as it stands now, after synchronising with whoever writes it;
    /// nothing when there is none.
    [[nodiscard]] virtual std::optional<PropertyList> persistentApps() = 0;

    /// Announces that the dock says its preferences changed ("com.apple.dock.prefchanged").
    [[nodiscard]] virtual Subscription observeChanges(std::function<void()> handler) = 0;
};

class PropertyListDecoder {
public:
    virtual ~PropertyListDecoder() = default;

    /// Decodes any of the platform's property-list formats; fails when the bytes are none.
    [[nodiscard]] virtual Result<PropertyList> decode(std::span<const std::byte> bytes) const = 0;
};

}
