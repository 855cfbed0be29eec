/// Which file a write to a URL replaces, where symbolic links may stand in the way: a user's own
/// links, which people have who keep their settings elsewhere, are followed to a file of their own
/// in a folder of their own. A link that leads to anything else is itself what is replaced.
#pragma once

#include "Foundation/FileURL.hpp"

#include <string>

namespace vireline::FollowedLinks {

/// How many links may follow one another.
inline constexpr int maximum = 8;

/// `placeAt` makes what the platform knows a place by, `ownLinkAt` gives the text of a link of the
/// user's own at a place and nothing for whatever else is there, and `isOwn` tells whether a file
/// of the user's own is there, or can be put there.
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
