#include "Desktop/Pinned/PinnedApps.hpp"

namespace vireline::xdg::PinnedApps {
namespace {

using Dictionary = PropertyList::Dictionary;

PropertyList fileData(const std::string& url) {
    return PropertyList{Dictionary{{"_CFURLString", PropertyList{url}}}};
}

PropertyList tileWith(Dictionary tileData) {
    return PropertyList{Dictionary{{"tile-data", PropertyList{std::move(tileData)}}}};
}

}

PropertyList tile(const std::string& url) {
    return tileWith({{"file-data", fileData(url)}});
}

PropertyList tiles(std::span<const std::string> bundleIDs, const ApplicationCatalog& catalog) {
    PropertyList::Array found;
    for (const std::string& bundleID : bundleIDs) {
        const auto url = catalog.urlForBundleID(bundleID);
        if (!url)
            continue;
        found.push_back(tileWith({{"file-data", fileData(url->absoluteString())},
                                  {"file-label", PropertyList{catalog.displayName(*url)}},
                                  {"bundle-identifier", PropertyList{bundleID}}}));
    }
    return PropertyList{std::move(found)};
}

}
