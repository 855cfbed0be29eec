#include "GLib/BusProbe.hpp"

#include "GLib/GLibHandles.hpp"

#include <gio/gio.h>
#include <unistd.h>

#include <array>
#include <string>

namespace vireline::xdg {
namespace {

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// The first line of D-Bus's authentication protocol, preceded by a zero byte; the identity is the
/// decimal user ID in hexadecimal encoding.
std::string greeting() {
    std::string text("\0AUTH EXTERNAL ", 15);
    for (const char digit : std::to_string(getuid())) {
        text += '3';
        text += digit;
    }
    return text + "\r\n";
}

}

bool BusProbe::answers(const std::string& address, unsigned int timeout) {
    const GObjectHandle<GIOStream> stream{
        g_dbus_address_get_stream_sync(address.c_str(), nullptr, nullptr, nullptr)};
    if (!stream || G_IS_SOCKET_CONNECTION(stream.get()) == 0)
        return true;
    g_socket_set_timeout(g_socket_connection_get_socket(G_SOCKET_CONNECTION(stream.get())),
                         timeout);
    const std::string text = greeting();
    GError* raw = nullptr;
    std::array<char, 1> answer{};
    if (g_output_stream_write_all(g_io_stream_get_output_stream(stream.get()), text.data(),
                                  text.size(), nullptr, nullptr, &raw) != 0) {
        g_input_stream_read(g_io_stream_get_input_stream(stream.get()), answer.data(),
                            answer.size(), nullptr, &raw);
    }
    const GErrorHandle error{raw};
    return g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_TIMED_OUT) == 0;
}

std::string BusProbe::sessionAddress() {
    const char* const address = g_getenv(addressVariable);
    if (address != nullptr && *address != '\0')
        return address;
    return std::string{"unix:path="} + g_get_user_runtime_dir() + "/bus";
}

void BusProbe::hideSessionBus() {
    // A transport that does not exist, so that every connection attempt fails at once.
    g_setenv(addressVariable, "disabled:", TRUE);
}

}
