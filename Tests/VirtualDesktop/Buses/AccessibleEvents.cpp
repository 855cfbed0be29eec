#include "VirtualDesktop/Buses/AccessibleEvents.hpp"

#include <algorithm>

namespace vireline::desktop {

AccessibleEvents::AccessibleEvents(const std::string& address)
    : bus_(address)
    , subscription_(g_dbus_connection_signal_subscribe(
          bus_.connection(), nullptr, "org.a11y.atspi.Event.Object", nullptr, nullptr, nullptr,
          G_DBUS_SIGNAL_FLAGS_NONE, note, this, nullptr)) {
    const BusObject registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/registry"};
    static_cast<void>(bus_.callOrThrow(registry, "org.a11y.atspi.Registry", "RegisterEvent",
                                       g_variant_new("(s)", "object:")));
}

AccessibleEvents::~AccessibleEvents() {
    g_dbus_connection_signal_unsubscribe(bus_.connection(), subscription_);
}

bool AccessibleEvents::has(const BusObject& source, const std::string& kind) {
    update();
    return std::ranges::find(events_, Event{source, kind}) != events_.end();
}

std::optional<BusObject> AccessibleEvents::lastSource(const std::string& kind) {
    update();
    const auto found = std::find_if(events_.rbegin(), events_.rend(),
                                    [&](const Event& event) { return event.kind == kind; });
    return found == events_.rend() ? std::nullopt : std::optional{found->source};
}

void AccessibleEvents::update() {
    while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
    }
}

void AccessibleEvents::note(GDBusConnection* /*connection*/, const char* sender, const char* path,
                            const char* /*interfaceName*/, const char* member, GVariant* parameters,
                            gpointer self) {
    const Variant detail{g_variant_get_child_value(parameters, 0)};
    static_cast<AccessibleEvents*>(self)->events_.push_back(
        {{sender, path}, std::string{member} + ' ' + g_variant_get_string(detail.get(), nullptr)});
}

}
