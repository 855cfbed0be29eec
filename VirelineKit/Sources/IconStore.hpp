/// Supplies the pictures of the tiles and keeps each until the platform's icons change, so that
/// views, which rebuild their tiles often and on every display, never ask the platform twice.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/Icons.hpp"

#include <functional>
#include <string>
#include <unordered_map>
#include <utility>

namespace vireline {

class IconStore {
public:
    static constexpr const char* downloadsKey = "utility.downloads";
    static constexpr const char* trashKey = "utility.trash";

    explicit IconStore(Icons& icons);
    IconStore(const IconStore&) = delete;
    IconStore& operator=(const IconStore&) = delete;
    IconStore(IconStore&&) = delete;
    IconStore& operator=(IconStore&&) = delete;
    ~IconStore() = default;

    /// The icon of the file at `path`, 44 × 44 points. A key keeps its first image until icons
    /// change.
    [[nodiscard]] ImageHandle icon(const std::string& path, const std::string& key);

    /// The empty Trash, whatever the Trash holds.
    [[nodiscard]] ImageHandle trashIcon();

    /// Announces that all icons have to be asked for again.
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
