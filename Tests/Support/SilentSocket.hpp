/// A socket that accepts connections and never responds, like a hung program.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

namespace vireline::test {

class SilentSocket : private NonCopyable {
public:
    /// Creates the socket file; throws on failure.
    explicit SilentSocket(const std::filesystem::path& path)
        : socket_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string name = path.string();
        name.copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
        constexpr int waiting = 8;
        if (::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            ::listen(socket_, waiting) != 0)
            throw std::system_error{errno, std::generic_category(), name};
    }
    ~SilentSocket() { ::close(socket_); }

    /// Closes the next connection.
    void turnAway() const {
        const int connection = ::accept(socket_, nullptr, nullptr);
        if (connection >= 0)
            ::close(connection);
    }

private:
    int socket_;
};

}
