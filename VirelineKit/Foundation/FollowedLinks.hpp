/// Decides which file a write to a URL replaces if there are symbolic links. Links that the user
/// owns are followed to a file that the user owns in a folder that the user owns, since users may
/// keep their settings elsewhere. Any other link is itself replaced.
#pragma once

#include "Foundation/FileURL.hpp"

#include <string>

namespace vireline::FollowedLinks {

/// The maximum length of a chain of links.
inline constexpr int maximum = 8;

/// `placeAt` converts a URL into the platform's representation of a place. `ownLinkAt` returns the
/// text of a link at a place if the user owns it, and nullopt otherwise. `isOwn` returns whether
/// the user owns the file at a place, or can create one there.
template <class PlaceAt, class OwnLinkAt, class IsOwn>
[[nodiscard]] auto target(const FileURL& url, const PlaceAt& placeAt, const OwnLinkAt& ownLinkAt,
                          const IsOwn& isOwn) {
    FileURL at = url;
    for (int links = 0; links <= maximum; ++links) {
        auto place = placeAt(at);
        if (const auto link = ownLinkAt(place))
            at = link->starts_with('/') ? FileURL::fromPath(*link) : at.parent().appending(*link);
        else if (links == 0 || isOwn(place))
            return place;
        else
            break;
    }
    return placeAt(url);
}

}
