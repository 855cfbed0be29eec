#include "Views/Input/DockDrops.hpp"

#include "Interaction/DockActions.hpp"
#include "Views/Contents/DockTiles.hpp"

#include <utility>

namespace vireline {

bool DockDrops::entered(const std::vector<std::string>& urls) {
    files_.clear();
    for (const std::string& text : urls) {
        if (auto url = FileURL::parse(text))
            files_.push_back(*std::move(url));
    }
    return !files_.empty();
}

bool DockDrops::moved(const Spot& over) {
    const bool canDrop = !files_.empty() && over.isOnStrip;
    const bool isOverTrash = over.tile != nullptr && over.tile->kind == TileKind::trash;
    setTarget(canDrop && isOverTrash ? std::optional{over.tile->serial} : std::nullopt);
    return canDrop;
}

void DockDrops::exited() {
    files_.clear();
    setTarget(std::nullopt);
}

bool DockDrops::dropped(const Spot& over) {
    const bool canDrop = moved(over);
    const bool isForTrash = target_.has_value();
    const auto files = std::exchange(files_, {});
    exited();
    if (!canDrop)
        return false;
    if (isForTrash) {
        actions_.trashFiles(files);
    } else {
        for (const FileURL& url : files)
            actions_.addApp(url);
    }
    return true;
}

void DockDrops::setTarget(std::optional<std::uint32_t> target) {
    if (std::exchange(target_, target) != target)
        onChange();
}

}
