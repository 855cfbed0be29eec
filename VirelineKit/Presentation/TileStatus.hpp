/// What an app announces about itself, for its tile to show.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vireline {

struct TileStatus {
    /// The number of unread messages, for example; at least 1. nullopt if there is nothing to
    /// count.
    std::optional<std::int64_t> count = {};
    /// Progress of the app's task, from 0 to 1.
    std::optional<double> progress = {};
    /// The app asks for the user's attention.
    bool isUrgent = false;

    bool operator==(const TileStatus&) const = default;
};

namespace TileStatuses {

/// The text of a badge: "99+" for more than 99.
[[nodiscard]] std::string badge(std::int64_t count);

}
}
