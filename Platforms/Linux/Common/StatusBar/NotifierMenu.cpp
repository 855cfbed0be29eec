#include "StatusBar/NotifierMenu.hpp"

#include <utility>
#include <vector>

namespace vireline::xdg {
namespace {

constexpr const char* menuInterfaceXML = R"xml(<node><interface name="com.canonical.dbusmenu">
<property name="Version" type="u" access="read"/>
<property name="TextDirection" type="s" access="read"/>
<property name="Status" type="s" access="read"/>
<property name="IconThemePath" type="as" access="read"/>
<method name="GetLayout"><arg type="i" name="parentId" direction="in"/><arg type="i" name="recursionDepth" direction="in"/><arg type="as" name="propertyNames" direction="in"/><arg type="u" name="revision" direction="out"/><arg type="(ia{sv}av)" name="layout" direction="out"/></method>
<method name="GetGroupProperties"><arg type="ai" name="ids" direction="in"/><arg type="as" name="propertyNames" direction="in"/><arg type="a(ia{sv})" name="properties" direction="out"/></method>
<method name="GetProperty"><arg type="i" name="id" direction="in"/><arg type="s" name="name" direction="in"/><arg type="v" name="value" direction="out"/></method>
<method name="Event"><arg type="i" name="id" direction="in"/><arg type="s" name="eventId" direction="in"/><arg type="v" name="data" direction="in"/><arg type="u" name="timestamp" direction="in"/></method>
<method name="EventGroup"><arg type="a(isvu)" name="events" direction="in"/><arg type="ai" name="idErrors" direction="out"/></method>
<method name="AboutToShow"><arg type="i" name="id" direction="in"/><arg type="b" name="needUpdate" direction="out"/></method>
<method name="AboutToShowGroup"><arg type="ai" name="ids" direction="in"/><arg type="ai" name="updatesNeeded" direction="out"/><arg type="ai" name="idErrors" direction="out"/></method>
<signal name="ItemsPropertiesUpdated"><arg type="a(ia{sv})" name="updatedProps"/><arg type="a(ias)" name="removedProps"/></signal>
<signal name="LayoutUpdated"><arg type="u" name="revision"/><arg type="i" name="parent"/></signal>
<signal name="ItemActivationRequested"><arg type="i" name="id"/><arg type="u" name="timestamp"/></signal>
</interface></node>)xml";

constexpr std::int32_t rootID = 0;
/// Constant, because the entries never change while the item exists.
constexpr std::uint32_t revision = 1;

using Value = GLibHandle<GVariant, g_variant_unref>;

std::int32_t idOf(std::size_t index) {
    return static_cast<std::int32_t>(index) + 1;
}

const MenuItem* itemWith(const Menu& menu, std::int32_t id) {
    const auto index = static_cast<std::size_t>(id) - 1;
    return id > rootID && index < menu.entries.size() ? &menu.entries[index] : nullptr;
}

void add(GVariantBuilder& dictionary, const char* key, GVariant* value) {
    g_variant_builder_add(&dictionary, "{sv}", key, value);
}

/// A single underscore would mark a mnemonic.
std::string escaped(const std::string& title) {
    std::string text;
    for (const char letter : title) {
        if (letter == '_')
            text += '_';
        text += letter;
    }
    return text;
}

GVariant* shortcut(char keyEquivalent) {
    const std::string key = keyEquivalent == ',' ? "comma" : std::string{keyEquivalent};
    GVariantBuilder keys;
    g_variant_builder_init(&keys, G_VARIANT_TYPE("aas"));
    g_variant_builder_open(&keys, G_VARIANT_TYPE("as"));
    g_variant_builder_add(&keys, "s", "Control");
    g_variant_builder_add(&keys, "s", key.c_str());
    g_variant_builder_close(&keys);
    return g_variant_builder_end(&keys);
}

GVariant* propertiesOf(const Menu& menu, std::int32_t id) {
    if (const MenuItem* const item = itemWith(menu, id))
        return NotifierMenuLayout::properties(*item);
    GVariantBuilder dictionary;
    g_variant_builder_init(&dictionary, G_VARIANT_TYPE_VARDICT);
    if (id == rootID)
        add(dictionary, "children-display", g_variant_new_string("submenu"));
    return g_variant_builder_end(&dictionary);
}

std::vector<std::int32_t> numbers(GVariant* array) {
    gsize count = 0;
    const auto* const first = static_cast<const std::int32_t*>(
        g_variant_get_fixed_array(array, &count, sizeof(std::int32_t)));
    return {first, first + count};
}

GVariant* groupProperties(const Menu& menu, GVariant* parameters) {
    const Value list{g_variant_get_child_value(parameters, 0)};
    auto ids = numbers(list.get());
    // An empty list requests all properties.
    if (ids.empty()) {
        for (std::size_t i = 0; i < menu.entries.size(); ++i)
            ids.push_back(idOf(i));
    }
    GVariantBuilder group;
    g_variant_builder_init(&group, G_VARIANT_TYPE("a(ia{sv})"));
    for (const std::int32_t id : ids) {
        if (id == rootID || itemWith(menu, id) != nullptr)
            g_variant_builder_add(&group, "(i@a{sv})", id, propertiesOf(menu, id));
    }
    return g_variant_new("(a(ia{sv}))", &group);
}

/// Null if there is no such property.
GVariant* property(const Menu& menu, GVariant* parameters) {
    std::int32_t id = 0;
    const char* name = nullptr;
    g_variant_get(parameters, "(i&s)", &id, &name);
    const Value all{g_variant_ref_sink(propertiesOf(menu, id))};
    const Value value{g_variant_lookup_value(all.get(), name, nullptr)};
    return value ? g_variant_new("(v)", value.get()) : nullptr;
}

GVariant* get(const std::string& property) {
    constexpr std::uint32_t version = 3;
    if (property == "Version")
        return g_variant_new_uint32(version);
    if (property == "TextDirection")
        return g_variant_new_string("ltr");
    if (property == "Status")
        return g_variant_new_string("normal");
    return g_variant_new_strv(nullptr, 0);
}

}

namespace NotifierMenuLayout {

GVariant* properties(const MenuItem& item) {
    GVariantBuilder dictionary;
    g_variant_builder_init(&dictionary, G_VARIANT_TYPE_VARDICT);
    if (const auto* const command = std::get_if<MenuCommand>(&item)) {
        add(dictionary, "label", g_variant_new_string(escaped(command->title).c_str()));
        if (command->keyEquivalent != 0)
            add(dictionary, "shortcut", shortcut(command->keyEquivalent));
        if (command->isChecked) {
            add(dictionary, "toggle-type", g_variant_new_string("checkmark"));
            add(dictionary, "toggle-state", g_variant_new_int32(*command->isChecked ? 1 : 0));
        }
    } else {
        add(dictionary, "type", g_variant_new_string("separator"));
    }
    return g_variant_builder_end(&dictionary);
}

GVariant* layout(const Menu& menu, std::int32_t id, std::int32_t depth) {
    const std::int32_t known = itemWith(menu, id) != nullptr ? id : rootID;
    GVariantBuilder children;
    g_variant_builder_init(&children, G_VARIANT_TYPE("av"));
    if (known == rootID && depth != 0) {
        for (std::size_t i = 0; i < menu.entries.size(); ++i)
            g_variant_builder_add(&children, "v", layout(menu, idOf(i), 0));
    }
    return g_variant_new("(i@a{sv}av)", known, propertiesOf(menu, known), &children);
}

}

NotifierMenu::NotifierMenu(GDBusConnection* bus, std::function<Menu()> menu)
    : source_(std::move(menu))
    , menu_(source_())
    , object_(
          bus, path, menuInterfaceXML,
          {.call =
               [this](const std::string& method, GVariant* parameters,
                      GDBusMethodInvocation* invocation) { call(method, parameters, invocation); },
           .get = get}) {}

void NotifierMenu::call(const std::string& method, GVariant* parameters,
                        GDBusMethodInvocation* invocation) {
    if (method == "GetLayout") {
        std::int32_t id = 0;
        std::int32_t depth = 0;
        g_variant_get(parameters, "(iias)", &id, &depth, nullptr);
        // Some hosts never announce that they are about to show the menu, but all of them read
        // the layout first.
        menu_ = source_();
        g_dbus_method_invocation_return_value(
            invocation, g_variant_new("(u@(ia{sv}av))", revision,
                                      NotifierMenuLayout::layout(menu_, id, depth)));
    } else if (method == "GetGroupProperties") {
        g_dbus_method_invocation_return_value(invocation, groupProperties(menu_, parameters));
    } else if (method == "GetProperty") {
        if (GVariant* const value = property(menu_, parameters))
            g_dbus_method_invocation_return_value(invocation, value);
        else
            g_dbus_method_invocation_return_error_literal(
                invocation, G_DBUS_ERROR, G_DBUS_ERROR_INVALID_ARGS, "no such property");
    } else if (method.starts_with("AboutToShow")) {
        callAboutToShow(method, invocation);
    } else {
        callEvents(method, parameters, invocation);
    }
}

void NotifierMenu::callAboutToShow(const std::string& method, GDBusMethodInvocation* invocation) {
    const bool hasChanged = refresh();
    if (method == "AboutToShow") {
        g_dbus_method_invocation_return_value(invocation, g_variant_new("(b)", hasChanged));
        return;
    }
    GVariantBuilder changed;
    g_variant_builder_init(&changed, G_VARIANT_TYPE("ai"));
    if (hasChanged)
        g_variant_builder_add(&changed, "i", rootID);
    g_dbus_method_invocation_return_value(invocation, g_variant_new("(aiai)", &changed, nullptr));
}

/// Replies before the action runs, because that may end this program.
void NotifierMenu::callEvents(const std::string& method, GVariant* parameters,
                              GDBusMethodInvocation* invocation) {
    std::vector<std::pair<std::int32_t, std::string>> events;
    std::int32_t id = 0;
    const char* event = nullptr;
    if (method == "Event") {
        g_variant_get(parameters, "(i&svu)", &id, &event, nullptr, nullptr);
        events.emplace_back(id, event);
        g_dbus_method_invocation_return_value(invocation, nullptr);
    } else {
        const Value list{g_variant_get_child_value(parameters, 0)};
        for (gsize i = 0; i < g_variant_n_children(list.get()); ++i) {
            const Value entry{g_variant_get_child_value(list.get(), i)};
            g_variant_get(entry.get(), "(i&svu)", &id, &event, nullptr, nullptr);
            events.emplace_back(id, event);
        }
        g_dbus_method_invocation_return_value(invocation, g_variant_new("(ai)", nullptr));
    }
    for (const auto& [item, name] : events)
        handle(item, name);
}

void NotifierMenu::handle(std::int32_t id, const std::string& event) {
    if (id == rootID && event == "opened")
        refresh();
    const MenuItem* const item = itemWith(menu_, id);
    const auto* const command = std::get_if<MenuCommand>(item);
    if (event != "clicked" || command == nullptr)
        return;
    // Copied, because the action may destroy this menu.
    const MenuAction act = command->action;
    if (act)
        act();
}

bool NotifierMenu::refresh() {
    const Menu before = std::exchange(menu_, source_());
    if (menu_ == before)
        return false;
    GVariantBuilder updated;
    g_variant_builder_init(&updated, G_VARIANT_TYPE("a(ia{sv})"));
    for (std::size_t i = 0; i < menu_.entries.size(); ++i) {
        if (i >= before.entries.size() || menu_.entries[i] != before.entries[i])
            g_variant_builder_add(&updated, "(i@a{sv})", idOf(i),
                                  NotifierMenuLayout::properties(menu_.entries[i]));
    }
    object_.emit("ItemsPropertiesUpdated", g_variant_new("(a(ia{sv})a(ias))", &updated, nullptr));
    return true;
}

}
