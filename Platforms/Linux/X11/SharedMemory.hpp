/// Memory that the X server reads pictures from, which spares sending them through the connection.
#pragma once

#include <xcb/shm.h>

#include <cstddef>
#include <memory>
#include <span>

namespace vireline::x11 {

class DrawingConnection;

class SharedMemory {
public:
    /// Null when the server cannot share memory with this program, as across a network. One round
    /// trip.
    [[nodiscard]] static std::unique_ptr<SharedMemory> make(const DrawingConnection& connection,
                                                            std::size_t bytes);

    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    SharedMemory(SharedMemory&&) = delete;
    SharedMemory& operator=(SharedMemory&&) = delete;
    /// The server keeps its own hold on the memory until it has carried out what was asked before.
    ~SharedMemory();

    [[nodiscard]] std::span<std::byte> bytes() const noexcept { return bytes_; }
    /// The server's name for it.
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
