#include "VirtualDesktop/Buses/AccessibleTree.hpp"

#include <algorithm>

namespace vireline::desktop {
namespace {

constexpr const char* accessible = "org.a11y.atspi.Accessible";
constexpr const char* component = "org.a11y.atspi.Component";
constexpr const char* action = "org.a11y.atspi.Action";

BusObject reference(GVariant* value) {
    const char* name = nullptr;
    const char* path = nullptr;
    g_variant_get(value, "(&s&o)", &name, &path);
    return {name, path};
}

const BusObject& registry() {
    static const BusObject root{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
    return root;
}

}

std::vector<BusObject> AccessibleTree::children(const BusObject& parent) const {
    std::vector<BusObject> found;
    const auto reply = bus_.call(parent, accessible, "GetChildren", nullptr);
    if (!reply)
        return found;
    const Variant list{g_variant_get_child_value(reply.get(), 0)};
    for (gsize i = 0; i < g_variant_n_children(list.get()); ++i) {
        const Variant child{g_variant_get_child_value(list.get(), i)};
        found.push_back(reference(child.get()));
    }
    return found;
}

bool AccessibleTree::walk(const BusObject& from, const Visit& visit) const {
    if (visit(from))
        return true;
    return std::ranges::any_of(children(from), [&](const BusObject& child) {
        return is(child, AccessibleState::visible) && walk(child, visit);
    });
}

bool AccessibleTree::walkAll(const Visit& visit) const {
    return std::ranges::any_of(children(registry()), [&](const BusObject& program) {
        return std::ranges::any_of(children(program), [&](const BusObject& window) {
            return is(window, AccessibleState::visible) && walk(window, visit);
        });
    });
}

std::optional<BusObject> AccessibleTree::find(AccessibleRole wanted,
                                              const std::string& name) const {
    std::optional<BusObject> found;
    walkAll([&](const BusObject& control) {
        if (role(control) != wanted || this->name(control) != name)
            return false;
        found = control;
        return true;
    });
    return found;
}

std::optional<BusObject> AccessibleTree::focused() const {
    std::optional<BusObject> found;
    walkAll([&](const BusObject& control) {
        if (is(control, AccessibleState::focused))
            found = control;
        return false;
    });
    return found;
}

std::vector<std::string> AccessibleTree::names(AccessibleRole wanted) const {
    std::vector<std::string> found;
    walkAll([&](const BusObject& control) {
        if (role(control) == wanted)
            found.push_back(name(control));
        return false;
    });
    return found;
}

PixelRect AccessibleTree::frame(const BusObject& control) const {
    constexpr std::uint32_t onScreen = 0;
    const auto reply = bus_.call(control, component, "GetExtents", g_variant_new("(u)", onScreen));
    PixelRect frame{};
    if (reply)
        g_variant_get(reply.get(), "((iiii))", &frame.x, &frame.y, &frame.width, &frame.height);
    return frame;
}

bool AccessibleTree::is(const BusObject& control, AccessibleState state) const {
    const auto reply = bus_.call(control, accessible, "GetState", nullptr);
    if (!reply)
        return false;
    const Variant numbers{g_variant_get_child_value(reply.get(), 0)};
    gsize count = 0;
    const auto* const bits = static_cast<const std::uint32_t*>(
        g_variant_get_fixed_array(numbers.get(), &count, sizeof(std::uint32_t)));
    constexpr std::uint32_t wordBits = 32;
    const auto bit = static_cast<std::uint32_t>(state);
    return bit / wordBits < count && ((bits[bit / wordBits] >> (bit % wordBits)) & 1U) != 0;
}

double AccessibleTree::value(const BusObject& slider) const {
    const auto value = bus_.property(slider, "org.a11y.atspi.Value", "CurrentValue");
    return value ? g_variant_get_double(value.get()) : -1;
}

std::string AccessibleTree::name(const BusObject& control) const {
    return text(control, "Name");
}

std::string AccessibleTree::description(const BusObject& control) const {
    return text(control, "Description");
}

std::string AccessibleTree::text(const BusObject& control, const char* property) const {
    const auto text = bus_.property(control, accessible, property);
    return text ? g_variant_get_string(text.get(), nullptr) : std::string{};
}

BusObject AccessibleTree::parent(const BusObject& control) const {
    const auto parent = bus_.property(control, accessible, "Parent");
    return parent ? reference(parent.get()) : BusObject{};
}

std::vector<std::string> AccessibleTree::actions(const BusObject& control) const {
    std::vector<std::string> names;
    const auto count = bus_.property(control, action, "NActions");
    for (int i = 0; count && i < g_variant_get_int32(count.get()); ++i) {
        const auto reply = bus_.call(control, action, "GetName", g_variant_new("(i)", i));
        const char* name = "";
        if (reply)
            g_variant_get(reply.get(), "(&s)", &name);
        names.emplace_back(name);
    }
    return names;
}

bool AccessibleTree::act(const BusObject& control, const std::string& name) const {
    const auto names = actions(control);
    const auto found = std::ranges::find(names, name);
    if (found == names.end())
        return false;
    const auto index = static_cast<int>(found - names.begin());
    const auto reply = bus_.call(control, action, "DoAction", g_variant_new("(i)", index));
    gboolean isDone = FALSE;
    if (reply)
        g_variant_get(reply.get(), "(b)", &isDone);
    return isDone != FALSE;
}

AccessibleRole AccessibleTree::role(const BusObject& control) const {
    const auto reply = bus_.call(control, accessible, "GetRole", nullptr);
    std::uint32_t number = 0;
    if (reply)
        g_variant_get(reply.get(), "(u)", &number);
    return AccessibleRole{number};
}

}
