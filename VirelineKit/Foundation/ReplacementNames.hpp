/// Names of the temporary files that are written next to a file and then replace it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vireline::ReplacementNames {

/// A hidden name, of a form that users and other programs do not use. `token` makes it unique.
[[nodiscard]] std::string name(std::string_view file, std::uint64_t token);

/// Whether `candidate` is such a name for `file`, with any token.
[[nodiscard]] bool isName(std::string_view candidate, std::string_view file);

}
