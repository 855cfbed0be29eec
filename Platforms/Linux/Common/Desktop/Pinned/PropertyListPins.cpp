#include "Desktop/Pinned/PropertyListPins.hpp"

#include "Desktop/PropertyLists/PropertyListLimits.hpp"
#include "Files/Watching/PathFollower.hpp"
#include "Foundation/DevLog.hpp"
#include "Sources/DockPreferencesReader.hpp"

namespace vireline::xdg {

PropertyListPins::PropertyListPins(const FileSystem& fileSystem, FileURL file)
    : fileSystem_(fileSystem), file_(std::move(file)) {}

std::optional<PropertyList> PropertyListPins::read() {
    const auto content = fileSystem_.read(file_, PropertyListLimits::maximumBytes);
    if (!content)
        return std::nullopt;
    return DockPreferencesReader::tileList(std::as_bytes(std::span{*content}), reader_)
        .value_or(std::nullopt);
}

Subscription PropertyListPins::observe(std::function<void()> handler) {
    auto following = followPath(file_, [handler = std::move(handler)](PathEvents) { handler(); });
    if (following)
        return *std::move(following);
    DevLog::write("dock preferences not watched: " + following.error().description);
    return {};
}

}
