/// What bytes may ask of the property-list parser. It recurses as deep and builds as much as it is
/// told to, so whatever would cost too much is refused before it sees a byte.
#pragma once

#include <cstddef>
#include <span>

namespace vireline::x11::PropertyListLimits {

/// Of the whole file. Docks of a hundred tiles need some 100 KB.
inline constexpr std::size_t maximumBytes = 16UL << 20U;

/// Values within values. The deepest thing that is read lies five down.
inline constexpr int maximumDepth = 64;

/// Values of a binary property list, counted as often as they are referred to, and tags of an XML
/// one. Docks of a hundred tiles have some 6,000. The parser's time for dictionaries grows with the
/// square of it.
inline constexpr std::size_t maximumValues = 65'536;

/// Arrays and dictionaries of an XML property list. All of them may lie in each other, and the
/// parser recurses when it frees them.
inline constexpr std::size_t maximumContainers = 4'096;

/// Whether an XML property list stays within the limits. Well-formedness is not looked at.
[[nodiscard]] bool admitsXML(std::span<const std::byte> bytes);

/// Whether a binary property list is one in all parts that can be reached from its root, refers to
/// nothing outside of itself, and stays within the limits when everything that it refers to several
/// times is written out.
[[nodiscard]] bool admitsBinary(std::span<const std::byte> bytes);

}
