/// Which environment a started program gets: the one that this program was started with, without
/// what it set for itself.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11::LaunchEnvironment {

using Variables = std::map<std::string, std::string, std::less<>>;

struct Change {
    std::string name;
    /// Nothing to unset it.
    std::optional<std::string> value;

    bool operator==(const Change&) const = default;
};

/// The variables in a block of "NAME=value" texts, each ended by a zero byte.
[[nodiscard]] Variables parse(std::string_view block);

/// What makes `current` into `initial`. What spoke of the start of this very program, such as its
/// startup ID, is unset in any case.
[[nodiscard]] std::vector<Change> restoring(const Variables& initial, const Variables& current);

/// `restoring` for this process as it is now. Only on the main thread.
[[nodiscard]] std::vector<Change> changes();

}
