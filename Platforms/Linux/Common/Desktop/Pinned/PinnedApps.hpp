/// Builds lists of pinned apps in the format that the kit reads, for every source.
#pragma once

#include "Foundation/PropertyList.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"

#include <span>

namespace vireline::xdg::PinnedApps {

/// A tile with the app's URL as it was found; the reader validates it.
[[nodiscard]] PropertyList tile(const std::string& url);

/// A tile for each of these identifiers that is installed, in the given order.
[[nodiscard]] PropertyList tiles(std::span<const std::string> bundleIDs,
                                 const ApplicationCatalog& catalog);

}
