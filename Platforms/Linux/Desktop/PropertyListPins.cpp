#include "Desktop/PropertyListPins.hpp"

#include "App/DevLog.hpp"
#include "Desktop/PropertyListLimits.hpp"
#include "Files/PathFollower.hpp"

namespace vireline::x11 {

PropertyListPins::PropertyListPins(const FileSystem& fileSystem, FileURL file)
    : fileSystem_(fileSystem), file_(std::move(file)) {}

std::optional<PropertyList> PropertyListPins::read() {
    const auto content = fileSystem_.read(file_, PropertyListLimits::maximumBytes);
    if (!content)
        return std::nullopt;
    const auto root = reader_.decode(std::as_bytes(std::span{*content}));
    const PropertyList* apps = root ? root->find("persistent-apps") : nullptr;
    return apps == nullptr ? std::nullopt : std::optional{*apps};
}

Subscription PropertyListPins::observe(std::function<void()> handler) {
    auto following = followPath(file_, [handler = std::move(handler)](PathEvents) { handler(); });
    if (following)
        return *std::move(following);
    DevLog::write("dock preferences not watched: " + following.error().description);
    return {};
}

}
