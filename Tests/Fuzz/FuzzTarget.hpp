/// What all fuzz targets share. A target is one file with this one function, which reads any bytes
/// as the program would and stops the process when a promise does not hold.
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
