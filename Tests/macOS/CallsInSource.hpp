/// Finds calls in C++ and Objective-C sources, without a compiler: enough to tell whether a
/// function still makes the call that it is documented for. Words in comments and strings do not
/// count.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vireline {

/// The text with every comment and all that stands in quotation marks left out.
[[nodiscard]] std::string codeWithoutWords(std::string_view text);

/// The definitions of functions, methods, types and constants of that name, each without the name
/// itself: parameters, initialisers and body.
[[nodiscard]] std::vector<std::string> definitionsOf(std::string_view code, std::string_view name);

/// Whether an Objective-C method of that name is defined, as one that the system calls.
[[nodiscard]] bool definesMethod(std::string_view code, std::string_view name);

/// Whether the code calls a function or sends a message of that name, or reads or writes such a
/// property. Of names in capitals, as those of types and constants are, any use counts.
[[nodiscard]] bool uses(std::string_view code, std::string_view name);

}
