#include "GLib/DBusObject.hpp"

#include "Foundation/Require.hpp"

#include <utility>

namespace vireline::xdg {
namespace {

using Handlers = DBusObject::Handlers;

void handleCall(GDBusConnection* /*bus*/, const gchar* /*sender*/, const gchar* /*path*/,
                const gchar* /*interface*/, const gchar* method, GVariant* parameters,
                GDBusMethodInvocation* invocation, gpointer data) {
    // A copy, because handling the call may destroy the object together with its handlers.
    const Handlers handlers = *static_cast<const Handlers*>(data);
    handlers.call(method, parameters, invocation);
}

GVariant* handleGet(GDBusConnection* /*bus*/, const gchar* /*sender*/, const gchar* /*path*/,
                    const gchar* /*interface*/, const gchar* property, GError** /*error*/,
                    gpointer data) {
    return static_cast<const Handlers*>(data)->get(property);
}

void deleteHandlers(gpointer data) {
    std::unique_ptr<Handlers>{static_cast<Handlers*>(data)}.reset();
}

constexpr GDBusInterfaceVTable table{handleCall, handleGet, nullptr, {}};

}

DBusObject::DBusObject(GDBusConnection* bus, std::string path, const char* interfaceXML,
                       Handlers handlers)
    : bus_(G_DBUS_CONNECTION(g_object_ref(bus))), path_(std::move(path)) {
    const GLibHandle<GDBusNodeInfo, g_dbus_node_info_unref> info{
        g_dbus_node_info_new_for_xml(interfaceXML, nullptr)};
    require(info != nullptr && info->interfaces[0] != nullptr, "the interface is described well");
    interfaceName_ = info->interfaces[0]->name;
    auto kept = std::make_unique<Handlers>(std::move(handlers));
    registration_ =
        g_dbus_connection_register_object(bus_.get(), path_.c_str(), info->interfaces[0], &table,
                                          kept.get(), deleteHandlers, nullptr);
    // GIO has taken ownership of the handlers, except if the registration failed because the path
    // is taken.
    if (registration_ != 0)
        static_cast<void>(kept.release());
}

DBusObject::~DBusObject() {
    if (registration_ != 0)
        g_dbus_connection_unregister_object(bus_.get(), registration_);
}

void DBusObject::emit(const char* signal, GVariant* parameters) const {
    g_dbus_connection_emit_signal(bus_.get(), nullptr, path_.c_str(), interfaceName_.c_str(),
                                  signal, parameters, nullptr);
}

}
