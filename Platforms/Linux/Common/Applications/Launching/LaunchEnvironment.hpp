/// The environment for launched programs: the one that this program was started with, without the
/// variables that it has set for itself.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg::LaunchEnvironment {

struct Change {
    std::string name;
    /// nullopt unsets the variable.
    std::optional<std::string> value;

    bool operator==(const Change&) const = default;
};

/// What to change for a launched program. `initial` is the environment that this program was
/// started with: texts of the form "NAME=value", each terminated by a zero byte. Variables about
/// the start of this program, such as its startup ID, are always unset.
[[nodiscard]] std::vector<Change> restoring(std::string_view initial);

/// `restoring` for this process.
[[nodiscard]] std::vector<Change> changes();

}
