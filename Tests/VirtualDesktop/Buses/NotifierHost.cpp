#include "VirtualDesktop/Buses/NotifierHost.hpp"

namespace vireline::desktop {
namespace {

constexpr const char* name = "org.kde.StatusNotifierWatcher";

std::vector<std::string> strings(const Variant& reply) {
    std::vector<std::string> found;
    const Variant list{g_variant_get_child_value(reply.get(), 0)};
    for (gsize i = 0; i < g_variant_n_children(list.get()); ++i) {
        const Variant line{g_variant_get_child_value(list.get(), i)};
        found.emplace_back(g_variant_get_string(line.get(), nullptr));
    }
    return found;
}

}

Variant NotifierHost::call(const char* method, GVariant* parameters) const {
    return bus_.callOrThrow({name, "/NotifierHost"}, "org.example.NotifierHost", method,
                            parameters);
}

bool NotifierHost::isThere() const {
    return bus_.hasOwner(name);
}

std::size_t NotifierHost::itemCount() const {
    return strings(call("Items", nullptr)).size();
}

Variant NotifierHost::property(const char* wanted) const {
    const auto reply = call("Property", g_variant_new("(s)", wanted));
    GVariant* value = nullptr;
    g_variant_get(reply.get(), "(v)", &value);
    return Variant{value};
}

std::string NotifierHost::text(const char* wanted) const {
    return g_variant_get_string(property(wanted).get(), nullptr);
}

bool NotifierHost::flag(const char* wanted) const {
    return g_variant_get_boolean(property(wanted).get()) != FALSE;
}

std::size_t NotifierHost::pictureCount() const {
    return g_variant_n_children(property("IconPixmap").get());
}

std::vector<std::string> NotifierHost::openMenu() const {
    return strings(call("OpenMenu", nullptr));
}

void NotifierHost::choose(const std::string& label) const {
    static_cast<void>(call("Choose", g_variant_new("(s)", label.c_str())));
}

void NotifierHost::press(const std::string& key) const {
    static_cast<void>(call("Press", g_variant_new("(s)", key.c_str())));
}

void NotifierHost::activate() const {
    static_cast<void>(call("Activate", g_variant_new("(ii)", 0, 0)));
}

void NotifierHost::becomeHost() const {
    static_cast<void>(call("BecomeHost", nullptr));
}

}
