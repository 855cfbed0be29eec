#include "Sources/IconStore.hpp"

#include "Foundation/Require.hpp"
#include "Model/DockMetrics.hpp"

namespace vireline {
namespace {

constexpr Size iconSize{DockMetrics::iconSize, DockMetrics::iconSize};

}

IconStore::IconStore(Icons& icons)
    : icons_(icons), iconChanges_(icons.observeChanges(lifetime_.guard([this] { forgetAll(); }))) {}

ImageHandle IconStore::icon(const std::string& path, const std::string& key) {
    auto& image = cache_[key];
    if (!image)
        image = icons_.iconForFile(path, key, iconSize);
    return image;
}

ImageHandle IconStore::trashIcon() {
    auto& image = cache_[trashKey];
    if (!image)
        image = icons_.namedImage("NSTrashEmpty", iconSize);
    if (!image)
        image = icons_.symbol("trash.fill", "Trash", iconSize);
    require(image != nullptr, "the system has a picture of the Trash");
    return image;
}

ImageHandle IconStore::actionIcon(const std::string& name) {
    constexpr Size menuIconSize{16, 16};
    return name.empty() ? nullptr : icons_.actionIcon(name, menuIconSize);
}

void IconStore::forgetAll() {
    cache_.clear();
    changes_.notify();
}

}
