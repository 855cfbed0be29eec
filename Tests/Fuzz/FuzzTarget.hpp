/// Shared by all fuzz targets. A target is one file with this one function, which parses arbitrary
/// bytes as the program would and aborts if an invariant is violated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vireline::fuzz {

[[nodiscard]] inline std::string_view text(const std::uint8_t* data, std::size_t size) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters
    return {reinterpret_cast<const char*>(data), size};
}

[[nodiscard]] inline std::span<const std::byte> bytes(const std::uint8_t* data, std::size_t size) {
    return std::as_bytes(std::span{data, size});
}

}
