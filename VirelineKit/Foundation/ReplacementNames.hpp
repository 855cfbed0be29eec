/// Names of the files that are written beside another one, in the same folder, to take its place.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vireline::ReplacementNames {

/// Hidden, and of a form that no other program and no person gives a file.
[[nodiscard]] std::string name(std::string_view file, std::uint64_t token);

/// Whether this is such a name for `file`, with whatever token.
[[nodiscard]] bool isName(std::string_view candidate, std::string_view file);

}
