/// A source of pinned apps: one place where a desktop's own dock keeps its list.
#pragma once

#include "Foundation/PropertyList.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>
#include <optional>

namespace vireline::xdg {

class PinnedAppsSource {
public:
    virtual ~PinnedAppsSource() = default;

    /// Whether this desktop keeps a list here, even if it is unreadable.
    [[nodiscard]] virtual bool exists() const = 0;

    /// The list in the format of "persistent-apps"; nullopt if it cannot be read. May only be
    /// called if the source exists.
    [[nodiscard]] virtual std::optional<PropertyList> read() = 0;

    /// Notifies when the list changes, appears or disappears. After it has appeared, the caller has
    /// to subscribe again.
    [[nodiscard]] virtual Subscription observe(std::function<void()> handler) = 0;
};

}
