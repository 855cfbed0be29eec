/// Simulates a panel with status notifier items: keeps the list of items as
/// org.kde.StatusNotifierWatcher, and opens and uses their menus on request through
/// org.example.NotifierHost on the session bus.
#include <gio/gio.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr const char* watcherXML =
    "<node><interface name='org.kde.StatusNotifierWatcher'>"
    "<method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>"
    "<method name='RegisterStatusNotifierHost'><arg type='s' direction='in'/></method>"
    "<property name='RegisteredStatusNotifierItems' type='as' access='read'/>"
    "<property name='IsStatusNotifierHostRegistered' type='b' access='read'/>"
    "<property name='ProtocolVersion' type='i' access='read'/>"
    "<signal name='StatusNotifierItemRegistered'><arg type='s'/></signal>"
    "<signal name='StatusNotifierHostRegistered'/>"
    "</interface></node>";

constexpr const char* hostXML =
    "<node><interface name='org.example.NotifierHost'>"
    "<method name='Items'><arg type='as' direction='out'/></method>"
    "<method name='Property'><arg type='s' direction='in'/><arg type='v' direction='out'/></method>"
    "<method name='OpenMenu'><arg type='as' direction='out'/></method>"
    "<method name='Choose'><arg type='s' direction='in'/></method>"
    "<method name='Press'><arg type='s' direction='in'/></method>"
    "<method name='Activate'><arg type='i' direction='in'/><arg type='i' direction='in'/></method>"
    "<method name='BecomeHost'/>"
    "</interface></node>";

constexpr const char* itemInterface = "org.kde.StatusNotifierItem";
constexpr const char* itemPath = "/StatusNotifierItem";
constexpr const char* menuInterface = "com.canonical.dbusmenu";

struct Unref {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Variant = std::unique_ptr<GVariant, Unref>;

struct Entry {
    int id = 0;
    std::string label;
    std::string key;
    bool isSeparator = false;
    bool isChecked = false;
};

struct Panel {
    GDBusConnection* bus = nullptr;
    std::vector<std::string> items;
    bool hasHost = false;
};

Variant call(const Panel& panel, const std::string& item, const char* path, const char* interface,
             const char* method, GVariant* parameters) {
    constexpr int timeout = 5000;
    return Variant{g_dbus_connection_call_sync(panel.bus, item.c_str(), path, interface, method,
                                               parameters, nullptr, G_DBUS_CALL_FLAGS_NONE, timeout,
                                               nullptr, nullptr)};
}

Variant property(const Panel& panel, const char* name) {
    const auto reply = call(panel, panel.items.back(), itemPath, "org.freedesktop.DBus.Properties",
                            "Get", g_variant_new("(ss)", itemInterface, name));
    GVariant* value = nullptr;
    if (reply)
        g_variant_get(reply.get(), "(v)", &value);
    return Variant{value};
}

std::string menuPath(const Panel& panel) {
    const auto path = property(panel, "Menu");
    return path ? g_variant_get_string(path.get(), nullptr) : "/";
}

/// The last key of the first shortcut.
std::string keyOf(GVariant* properties) {
    const Variant shortcuts{g_variant_lookup_value(properties, "shortcut", G_VARIANT_TYPE("aas"))};
    if (!shortcuts || g_variant_n_children(shortcuts.get()) == 0)
        return {};
    const Variant keys{g_variant_get_child_value(shortcuts.get(), 0)};
    const Variant last{g_variant_get_child_value(keys.get(), g_variant_n_children(keys.get()) - 1)};
    return g_variant_get_string(last.get(), nullptr);
}

Entry read(GVariant* node) {
    Entry entry;
    GVariant* raw = nullptr;
    g_variant_get(node, "(i@a{sv}av)", &entry.id, &raw, nullptr);
    const Variant properties{raw};
    const char* text = nullptr;
    if (g_variant_lookup(properties.get(), "label", "&s", &text) != 0)
        entry.label = text;
    if (g_variant_lookup(properties.get(), "type", "&s", &text) != 0)
        entry.isSeparator = std::string{text} == "separator";
    int state = 0;
    if (g_variant_lookup(properties.get(), "toggle-state", "i", &state) != 0)
        entry.isChecked = state == 1;
    entry.key = keyOf(properties.get());
    return entry;
}

/// Like a panel: announces that it is about to show the menu, and then reads it.
std::vector<Entry> openMenu(const Panel& panel) {
    const std::string path = menuPath(panel);
    const std::string& item = panel.items.back();
    call(panel, item, path.c_str(), menuInterface, "AboutToShow", g_variant_new("(i)", 0));
    const auto reply = call(panel, item, path.c_str(), menuInterface, "GetLayout",
                            g_variant_new("(iias)", 0, -1, nullptr));
    std::vector<Entry> entries;
    if (!reply)
        return entries;
    const Variant root{g_variant_get_child_value(reply.get(), 1)};
    const Variant children{g_variant_get_child_value(root.get(), 2)};
    for (gsize i = 0; i < g_variant_n_children(children.get()); ++i) {
        const Variant boxed{g_variant_get_child_value(children.get(), i)};
        const Variant child{g_variant_get_variant(boxed.get())};
        entries.push_back(read(child.get()));
    }
    return entries;
}

void click(const Panel& panel, int id) {
    call(panel, panel.items.back(), menuPath(panel).c_str(), menuInterface, "Event",
         g_variant_new("(isvu)", id, "clicked", g_variant_new_string(""), 0U));
}

/// "Settings…", "[ ] Launch at Login", "---".
std::string described(const Entry& entry, bool isToggle) {
    if (entry.isSeparator)
        return "---";
    return (isToggle ? (entry.isChecked ? "[x] " : "[ ] ") : "") + entry.label;
}

GVariant* menuAsText(const Panel& panel) {
    GVariantBuilder lines;
    g_variant_builder_init(&lines, G_VARIANT_TYPE("as"));
    for (const Entry& entry : openMenu(panel)) {
        const bool isToggle = entry.label == "Launch at Login";
        g_variant_builder_add(&lines, "s", described(entry, isToggle).c_str());
    }
    return g_variant_new("(as)", &lines);
}

void chooseWhere(const Panel& panel, const std::string Entry::* member, const std::string& wanted) {
    for (const Entry& entry : openMenu(panel)) {
        if (entry.*member == wanted)
            return click(panel, entry.id);
    }
}

GVariant* itemList(const Panel& panel) {
    GVariantBuilder items;
    g_variant_builder_init(&items, G_VARIANT_TYPE("as"));
    for (const auto& item : panel.items)
        g_variant_builder_add(&items, "s", item.c_str());
    return g_variant_builder_end(&items);
}

void becomeHost(Panel& panel) {
    panel.hasHost = true;
    g_dbus_connection_emit_signal(panel.bus, nullptr, "/StatusNotifierWatcher",
                                  "org.kde.StatusNotifierWatcher", "StatusNotifierHostRegistered",
                                  nullptr, nullptr);
}

GVariant* answer(Panel& panel, const std::string& method, GVariant* parameters) {
    const auto text = [&] {
        const char* argument = nullptr;
        g_variant_get(parameters, "(&s)", &argument);
        return std::string{argument};
    };
    if (method == "Items")
        return g_variant_new("(@as)", itemList(panel));
    if (method == "Property") {
        const auto value = property(panel, text().c_str());
        return g_variant_new("(v)", value ? value.get() : g_variant_new_string(""));
    }
    if (method == "OpenMenu")
        return menuAsText(panel);
    if (method == "Choose")
        chooseWhere(panel, &Entry::label, text());
    if (method == "Press")
        chooseWhere(panel, &Entry::key, text());
    if (method == "Activate")
        call(panel, panel.items.back(), itemPath, itemInterface, "Activate",
             g_variant_ref(parameters));
    if (method == "BecomeHost")
        becomeHost(panel);
    return nullptr;
}

void hostCalled(GDBusConnection*, const char*, const char*, const char*, const char* method,
                GVariant* parameters, GDBusMethodInvocation* invocation, void* panel) {
    g_dbus_method_invocation_return_value(invocation,
                                          answer(*static_cast<Panel*>(panel), method, parameters));
}

void watcherCalled(GDBusConnection*, const char* sender, const char*, const char*,
                   const char* method, GVariant* parameters, GDBusMethodInvocation* invocation,
                   void* data) {
    auto& panel = *static_cast<Panel*>(data);
    if (std::string{method} == "RegisterStatusNotifierItem") {
        const char* argument = nullptr;
        g_variant_get(parameters, "(&s)", &argument);
        panel.items.emplace_back(*argument == '/' ? sender : argument);
    }
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

GVariant* watcherProperty(GDBusConnection*, const char*, const char*, const char*,
                          const char* property, GError**, void* data) {
    const auto& panel = *static_cast<const Panel*>(data);
    if (std::string{property} == "IsStatusNotifierHostRegistered")
        return g_variant_new_boolean(panel.hasHost ? TRUE : FALSE);
    if (std::string{property} == "ProtocolVersion")
        return g_variant_new_int32(0);
    return itemList(panel);
}

void registerObject(GDBusConnection* bus, const char* path, const char* xml,
                    const GDBusInterfaceVTable& table, Panel& panel) {
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(xml, nullptr);
    g_dbus_connection_register_object(bus, path, node->interfaces[0], &table, &panel, nullptr,
                                      nullptr);
    g_dbus_node_info_unref(node);
}

void reached(GDBusConnection* bus, const char*, void* data) {
    static const GDBusInterfaceVTable watcherTable{watcherCalled, watcherProperty, nullptr, {}};
    static const GDBusInterfaceVTable hostTable{hostCalled, nullptr, nullptr, {}};
    auto& panel = *static_cast<Panel*>(data);
    panel.bus = bus;
    registerObject(bus, "/StatusNotifierWatcher", watcherXML, watcherTable, panel);
    registerObject(bus, "/NotifierHost", hostXML, hostTable, panel);
}

}

/// With "--no-host" it keeps the list without showing items, until it is told to.
int main(int count, char** arguments) {
    Panel panel;
    panel.hasHost = count < 2 || std::string{arguments[1]} != "--no-host";
    g_bus_own_name(G_BUS_TYPE_SESSION, "org.kde.StatusNotifierWatcher", G_BUS_NAME_OWNER_FLAGS_NONE,
                   reached, nullptr, nullptr, &panel, nullptr);
    const std::unique_ptr<GMainLoop, decltype(&g_main_loop_unref)> loop{g_main_loop_new(nullptr, 0),
                                                                        g_main_loop_unref};
    g_main_loop_run(loop.get());
    return EXIT_SUCCESS;
}
