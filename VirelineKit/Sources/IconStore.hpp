/// Supplies the pictures of the tiles and keeps each for the life of the program, so that views,
/// which are made anew often and on every display, never ask the platform twice.
#pragma once

#include "Platform/Icons.hpp"

#include <string>
#include <unordered_map>

namespace vireline {

class IconStore {
public:
    static constexpr const char* downloadsKey = "utility.downloads";
    static constexpr const char* trashKey = "utility.trash";

    explicit IconStore(Icons& icons) : icons_(icons) {}
    IconStore(const IconStore&) = delete;
    IconStore& operator=(const IconStore&) = delete;
    IconStore(IconStore&&) = delete;
    IconStore& operator=(IconStore&&) = delete;
    ~IconStore() = default;

    /// The icon of the file at `path`, 44 × 44 points. A key keeps its first image.
    [[nodiscard]] ImageHandle icon(const std::string& path, const std::string& key);

    /// The empty Trash, whatever the Trash holds.
    [[nodiscard]] ImageHandle trashIcon();

private:
    Icons& icons_;
    std::unordered_map<std::string, ImageHandle> cache_;
};

}
