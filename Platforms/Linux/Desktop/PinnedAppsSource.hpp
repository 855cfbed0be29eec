/// One place where the desktop's own dock may keep its pinned apps.
#pragma once

#include "Foundation/PropertyList.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>
#include <optional>

namespace vireline::x11 {

class PinnedAppsSource {
public:
    virtual ~PinnedAppsSource() = default;

    /// Whether this desktop keeps a list here, readable or not.
    [[nodiscard]] virtual bool exists() const = 0;

    /// The list in the shape of "persistent-apps"; nothing when it cannot be read. Asked only of
    /// a source that exists.
    [[nodiscard]] virtual std::optional<PropertyList> read() = 0;

    /// Announces that the list changed, came or went. One that came is to be observed afresh.
    [[nodiscard]] virtual Subscription observe(std::function<void()> handler) = 0;
};

}
