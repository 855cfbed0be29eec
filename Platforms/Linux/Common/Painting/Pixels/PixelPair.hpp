/// SIMD arithmetic on two premultiplied pixels at a time.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace vireline::xdg {

/// The channels of two neighbouring pixels, each in 16 bits.
// NOLINTNEXTLINE(modernize-avoid-c-arrays): a vector of the compiler's
using PixelPair [[gnu::vector_size(16)]] = std::uint16_t;

namespace PixelPairs {

/// Weights and coverage are fractions of this.
inline constexpr std::uint16_t whole = 256;

using Bytes [[gnu::vector_size(8)]] = std::uint8_t;

[[nodiscard]] inline PixelPair load(const std::uint32_t* pixels) noexcept {
    Bytes bytes;
    std::memcpy(&bytes, pixels, sizeof bytes);
    return __builtin_convertvector(bytes, PixelPair);
}

inline void store(std::uint32_t* pixels, PixelPair pair) noexcept {
    const Bytes bytes = __builtin_convertvector(pair, Bytes);
    std::memcpy(pixels, &bytes, sizeof bytes);
}

/// The channels of one pixel, each in 16 bits.
using Channels = std::uint64_t;

/// Built in registers, because a round trip through memory would stall the processor.
[[nodiscard]] inline PixelPair of(Channels first, Channels second) noexcept {
    using Words [[gnu::vector_size(16)]] = std::uint64_t;
    return reinterpret_cast<PixelPair>(Words{first, second});
}

/// The same value for all channels of a pixel.
[[nodiscard]] constexpr Channels everywhere(std::uint16_t value) noexcept {
    constexpr Channels ones = 0x0001000100010001U;
    return value * ones;
}

/// The same value for all channels of both pixels.
[[nodiscard]] inline PixelPair all(std::uint16_t value) noexcept {
    return PixelPair{} + value;
}

/// Interpolates; `weights` is the fraction of `second`, relative to `whole`.
[[nodiscard]] inline PixelPair between(PixelPair first, PixelPair second,
                                       PixelPair weights) noexcept {
    return (first * (whole - weights) + second * weights) >> 8;
}

[[nodiscard]] inline PixelPair faded(PixelPair pair, PixelPair weights) noexcept {
    return (pair * weights) >> 8;
}

/// Each pixel's alpha, copied to all of its channels.
[[nodiscard]] inline PixelPair alphas(PixelPair pair) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
        return __builtin_shufflevector(pair, pair, 3, 3, 3, 3, 7, 7, 7, 7);
    } else {
        return __builtin_shufflevector(pair, pair, 0, 0, 0, 0, 4, 4, 4, 4);
    }
}

/// Source-over blending; the division by 255 is correctly rounded.
[[nodiscard]] inline PixelPair over(PixelPair pair, PixelPair below) noexcept {
    constexpr std::uint16_t half = 128;
    const PixelPair shining = below * (255 - alphas(pair)) + half;
    return pair + ((shining + (shining >> 8)) >> 8);
}

}
}
