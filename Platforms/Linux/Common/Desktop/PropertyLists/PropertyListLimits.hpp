/// Limits for the property-list parser. It recurses as deeply and allocates as much as its input
/// demands, so input that would cost too much is rejected before parsing.
#pragma once

#include <cstddef>
#include <span>

namespace vireline::xdg::PropertyListLimits {

/// Size of the whole file. Docks with a hundred tiles need about 100 KB.
inline constexpr std::size_t maximumBytes = 16UL << 20U;

/// Nesting depth. The deepest value that is used is at level five.
inline constexpr int maximumDepth = 64;

/// Values in a binary property list, counted once per reference, or tags in an XML one. Docks with
/// a hundred tiles have about 6,000. The parser's time for dictionaries grows with the square of
/// this.
inline constexpr std::size_t maximumValues = 65'536;

/// Arrays and dictionaries in an XML property list. They may all be nested in each other, and the
/// parser frees them recursively.
inline constexpr std::size_t maximumContainers = 4'096;

/// Whether an XML property list is within the limits. Does not check that it is well-formed.
[[nodiscard]] bool admitsXML(std::span<const std::byte> bytes);

/// Whether a binary property list is valid in everything reachable from its root, refers to nothing
/// outside itself, and is within the limits with every reference expanded.
[[nodiscard]] bool admitsBinary(std::span<const std::byte> bytes);

}
