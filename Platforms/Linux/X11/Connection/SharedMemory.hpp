/// Memory shared with the X server, so that images need not be sent through the connection.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <xcb/shm.h>

#include <cstddef>
#include <memory>
#include <span>

namespace vireline::x11 {

class DrawingConnection;

class SharedMemory : private NonCopyable {
public:
    /// Null if the server cannot share memory with this program, for example across a network. One
    /// round trip.
    [[nodiscard]] static std::unique_ptr<SharedMemory> make(const DrawingConnection& connection,
                                                            std::size_t bytes);

    /// The server keeps its own mapping until it has processed earlier requests.
    ~SharedMemory();

    [[nodiscard]] std::span<std::byte> bytes() const noexcept { return bytes_; }
    /// The server's ID for the segment.
    [[nodiscard]] xcb_shm_seg_t segment() const noexcept { return segment_; }

private:
    SharedMemory(const DrawingConnection& connection, xcb_shm_seg_t segment,
                 std::span<std::byte> bytes)
        : connection_(connection), segment_(segment), bytes_(bytes) {}

    const DrawingConnection& connection_;
    xcb_shm_seg_t segment_;
    std::span<std::byte> bytes_;
};

}
