/// Decides which tiles are marked because their apps want the user's attention.
#pragma once

#include <optional>
#include <set>
#include <string>

namespace vireline::Attention {

/// Apps by bundle identifier.
using Apps = std::set<std::string>;

struct State {
    /// Apps that were asking for attention at the previous call of `next`.
    Apps asking;
    Apps marked;

    bool operator==(const State&) const = default;
};

/// What is known now.
struct Facts {
    Apps asking;
    /// Running, or announcing something.
    Apps present;
    std::optional<std::string> active;
};

/// An app is marked once it begins to ask, unless it is active, and until it becomes active or is
/// no longer present. An app that keeps asking while it is active is not marked again.
[[nodiscard]] State next(const State& before, const Facts& now);

}
