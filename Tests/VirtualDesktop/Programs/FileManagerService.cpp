/// Simulates the file manager on the session bus: records what it is asked to show. Arguments: the
/// file for the calls, and a file that is created as soon as it can be called.
#include <gio/gio.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

namespace {

constexpr const char* interfaceDescription =
    "<node><interface name='org.freedesktop.FileManager1'>"
    "<method name='ShowItems'><arg type='as' direction='in'/><arg type='s' "
    "direction='in'/></method>"
    "<method name='ShowFolders'><arg type='as' direction='in'/><arg type='s' direction='in'/>"
    "</method></interface></node>";

struct Files {
    std::string calls;
    std::string ready;
};

void called(GDBusConnection*, const char*, const char*, const char*, const char* method,
            GVariant* parameters, GDBusMethodInvocation* invocation, void* files) {
    std::ofstream calls{static_cast<const Files*>(files)->calls, std::ios::app};
    GVariantIter* items = nullptr;
    const char* startupID = nullptr;
    g_variant_get(parameters, "(as&s)", &items, &startupID);
    const char* item = nullptr;
    while (g_variant_iter_next(items, "&s", &item) != 0)
        calls << method << ' ' << item << '\n' << std::flush;
    g_variant_iter_free(items);
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

void reached(GDBusConnection* connection, const char*, void* files) {
    static const GDBusInterfaceVTable table{called, nullptr, nullptr, {}};
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(interfaceDescription, nullptr);
    g_dbus_connection_register_object(connection, "/org/freedesktop/FileManager1",
                                      node->interfaces[0], &table, files, nullptr, nullptr);
    g_dbus_node_info_unref(node);
}

void named(GDBusConnection*, const char*, void* files) {
    std::ofstream{static_cast<const Files*>(files)->ready} << "ready\n";
}

}

int main(int count, char** arguments) {
    if (count != 3)
        return EXIT_FAILURE;
    Files files{arguments[1], arguments[2]};
    g_bus_own_name(G_BUS_TYPE_SESSION, "org.freedesktop.FileManager1", G_BUS_NAME_OWNER_FLAGS_NONE,
                   reached, named, nullptr, &files, nullptr);
    const std::unique_ptr<GMainLoop, decltype(&g_main_loop_unref)> loop{g_main_loop_new(nullptr, 0),
                                                                        g_main_loop_unref};
    g_main_loop_run(loop.get());
    return EXIT_SUCCESS;
}
