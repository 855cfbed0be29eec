#include "Connection/SharedMemory.hpp"

#include "Connection/DrawingConnection.hpp"
#include "Connection/X11Connection.hpp"
#include "Files/FileDescriptor.hpp"

#include <sys/mman.h>
#include <sys/socket.h>

#include <cstdint>
#include <limits>

namespace vireline::x11 {
namespace {

/// Only a local socket can pass a file descriptor. On any other kind of connection, the request
/// would end the connection.
bool isLocal(xcb_connection_t* connection) {
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    return getsockname(xcb_get_file_descriptor(connection), reinterpret_cast<sockaddr*>(&address),
                       &length) == 0 &&
           address.ss_family == AF_UNIX;
}

bool hasExtension(xcb_connection_t* connection) {
    const auto* const extension = xcb_get_extension_data(connection, &xcb_shm_id);
    return extension != nullptr && extension->present != 0;
}

}

std::unique_ptr<SharedMemory> SharedMemory::make(const DrawingConnection& connection,
                                                 std::size_t bytes) {
    xcb_connection_t* const x = connection.get();
    if (bytes == 0 || bytes > std::numeric_limits<std::uint32_t>::max() || !isLocal(x) ||
        !hasExtension(x))
        return nullptr;
    const xcb_shm_seg_t segment = xcb_generate_id(x);
    xcb_generic_error_t* error = nullptr;
    const Owned<xcb_shm_create_segment_reply_t> reply{xcb_shm_create_segment_reply(
        x, xcb_shm_create_segment(x, segment, static_cast<std::uint32_t>(bytes), 0), &error)};
    const Owned<xcb_generic_error_t> refusal{error};
    if (!reply || reply->nfd != 1)
        return nullptr;
    const xdg::FileDescriptor file{*xcb_shm_create_segment_reply_fds(x, reply.get())};
    void* const memory = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
    if (memory == MAP_FAILED) {
        xcb_shm_detach(x, segment);
        return nullptr;
    }
    return std::unique_ptr<SharedMemory>{
        new SharedMemory{connection, segment, {static_cast<std::byte*>(memory), bytes}}};
}

SharedMemory::~SharedMemory() {
    xcb_shm_detach(connection_.get(), segment_);
    ::munmap(bytes_.data(), bytes_.size());
}

}
