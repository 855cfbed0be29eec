/// Caches the images of the tiles until the platform's icons change, since every view rebuilds its
/// tiles often.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Applications/Icons.hpp"

#include <functional>
#include <string>
#include <unordered_map>
#include <utility>

namespace vireline {

class IconStore : private NonCopyable {
public:
    static constexpr const char* downloadsKey = "utility.downloads";
    static constexpr const char* trashKey = "utility.trash";

    explicit IconStore(Icons& icons);

    /// The icon of the file at `path`, 44 × 44 points. Cached by `key` until icons change, even if
    /// `path` changes.
    [[nodiscard]] ImageHandle icon(const std::string& path, const std::string& key);

    /// The icon of an empty Trash, even if the Trash is not empty.
    [[nodiscard]] ImageHandle trashIcon();

    /// The icon of an entry in a menu, 16 × 16 points; null if there is none. Not cached.
    [[nodiscard]] ImageHandle actionIcon(const std::string& name);

    /// Calls `handler` when all icons must be requested again.
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) {
        return changes_.add(std::move(handler));
    }

private:
    void forgetAll();

    Icons& icons_;
    std::unordered_map<std::string, ImageHandle> cache_;
    CallbackList<> changes_;
    Lifetime lifetime_;
    Subscription iconChanges_;
};

}
