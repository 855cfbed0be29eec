#include "VirtualDesktop/Buses/BusClient.hpp"

#include <stdexcept>

namespace vireline::desktop {
namespace {

constexpr int timeoutMilliseconds = 5000;

}

BusClient::BusClient(const std::string& address) : connection_(connect(address)) {
    if (!connection_)
        throw std::runtime_error{"no bus at " + address};
}

BusClient::Connection BusClient::connect(const std::string& address) {
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): C's way with flags
    const auto flags =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    return Connection{
        g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr)};
}

bool BusClient::answers(const std::string& address) {
    return connect(address) != nullptr;
}

Variant BusClient::call(const BusObject& object, const char* interfaceName, const char* method,
                        GVariant* parameters) const {
    return Variant{g_dbus_connection_call_sync(
        connection_.get(), object.name.c_str(), object.path.c_str(), interfaceName, method,
        parameters, nullptr, G_DBUS_CALL_FLAGS_NONE, timeoutMilliseconds, nullptr, nullptr)};
}

Variant BusClient::callOrThrow(const BusObject& object, const char* interfaceName,
                               const char* method, GVariant* parameters) const {
    auto reply = call(object, interfaceName, method, parameters);
    if (!reply)
        throw std::runtime_error{object.name + object.path + " does not answer " + method};
    return reply;
}

Variant BusClient::property(const BusObject& object, const char* interfaceName,
                            const char* property) const {
    const auto reply = call(object, "org.freedesktop.DBus.Properties", "Get",
                            g_variant_new("(ss)", interfaceName, property));
    if (!reply)
        return nullptr;
    GVariant* value = nullptr;
    g_variant_get(reply.get(), "(v)", &value);
    return Variant{value};
}

bool BusClient::hasOwner(const std::string& name) const {
    const auto reply =
        call({"org.freedesktop.DBus", "/org/freedesktop/DBus"}, "org.freedesktop.DBus",
             "NameHasOwner", g_variant_new("(s)", name.c_str()));
    gboolean has = FALSE;
    if (reply)
        g_variant_get(reply.get(), "(b)", &has);
    return has != FALSE;
}

}
