/// The environment for launched programs: the one that this program was started with, without the
/// variables that it has set for itself.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg::LaunchEnvironment {

using Variables = std::map<std::string, std::string, std::less<>>;

struct Change {
    std::string name;
    /// nullopt unsets the variable.
    std::optional<std::string> value;

    bool operator==(const Change&) const = default;
};

/// Parses a block of "NAME=value" texts, each terminated by a zero byte.
[[nodiscard]] Variables parse(std::string_view block);

/// The changes that turn `current` into `initial`. Variables about the start of this program
/// itself, such as its startup ID, are always unset.
[[nodiscard]] std::vector<Change> restoring(const Variables& initial, const Variables& current);

/// `restoring` for this process's current environment. Main thread only.
[[nodiscard]] std::vector<Change> changes();

}
