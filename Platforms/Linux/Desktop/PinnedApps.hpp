/// Lists of pinned apps in the shape in which the kit reads them, whoever keeps the list.
#pragma once

#include "Foundation/PropertyList.hpp"
#include "Platform/ApplicationCatalog.hpp"

#include <span>

namespace vireline::x11::PinnedApps {

/// A tile with the app's URL text as it was found, to be judged by who reads it.
[[nodiscard]] PropertyList tile(const std::string& url);

/// A tile for each of these identifiers that is installed, in their order.
[[nodiscard]] PropertyList tiles(std::span<const std::string> bundleIDs,
                                 const ApplicationCatalog& catalog);

}
