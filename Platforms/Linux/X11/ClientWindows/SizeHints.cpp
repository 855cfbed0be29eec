#include "ClientWindows/SizeHints.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace vireline::x11 {
namespace {

/// The longest side that the X protocol allows.
constexpr int greatest = 32767;

/// ICCCM's flags, and the index of each pair of numbers.
constexpr std::uint32_t hasMinimum = 1U << 4U;
constexpr std::uint32_t hasMaximum = 1U << 5U;
constexpr std::uint32_t hasIncrement = 1U << 6U;
constexpr std::uint32_t hasBase = 1U << 8U;
constexpr std::size_t minimumAt = 5;
constexpr std::size_t maximumAt = 7;
constexpr std::size_t incrementAt = 9;
constexpr std::size_t baseAt = 15;

std::optional<PixelSize> sizeAt(std::span<const std::uint32_t> items, std::uint32_t flag,
                                std::size_t index) {
    if (items.size() < index + 2 || (items[0] & flag) == 0)
        return std::nullopt;
    const auto length = [](std::uint32_t item) {
        return std::clamp(static_cast<std::int32_t>(item), 0, greatest);
    };
    return PixelSize{length(items[index]), length(items[index + 1])};
}

int constrainedLength(int wanted, int minimum, int maximum, int base, int increment) {
    const int bounded = std::max(std::min(wanted, maximum), minimum);
    const int whole = base + std::max(0, bounded - base) / increment * increment;
    if (whole >= minimum)
        return whole;
    // The minimum lies between two steps.
    return std::max(minimum, std::min(maximum, whole + increment));
}

}

SizeHints SizeHints::parse(std::span<const std::uint32_t> items) {
    const auto minimum = sizeAt(items, hasMinimum, minimumAt);
    const auto maximum = sizeAt(items, hasMaximum, maximumAt);
    const auto base = sizeAt(items, hasBase, baseAt);
    const auto increment = sizeAt(items, hasIncrement, incrementAt);
    SizeHints hints;
    // If only one of the two is set, it serves as the other.
    if (const auto least = minimum ? minimum : base)
        hints.minimum = {std::max(1, least->width), std::max(1, least->height)};
    if (const auto first = base ? base : minimum)
        hints.base = *first;
    if (maximum) {
        const auto most = [](int length, int least) {
            return length == 0 ? greatest : std::max(length, least);
        };
        hints.maximum = {most(maximum->width, hints.minimum.width),
                         most(maximum->height, hints.minimum.height)};
    }
    if (increment)
        hints.increment = {std::max(1, increment->width), std::max(1, increment->height)};
    return hints;
}

PixelSize SizeHints::constrained(PixelSize wanted) const noexcept {
    return {
        constrainedLength(wanted.width, minimum.width, maximum.width, base.width, increment.width),
        constrainedLength(wanted.height, minimum.height, maximum.height, base.height,
                          increment.height)};
}

}
