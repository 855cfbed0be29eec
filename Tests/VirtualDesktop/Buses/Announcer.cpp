#include "VirtualDesktop/Buses/Announcer.hpp"

namespace vireline::desktop {

void Announcer::announce(const std::string& app, const std::string& properties) const {
    announceSoon(app, properties);
    g_dbus_connection_flush_sync(bus_.connection(), nullptr, nullptr);
}

void Announcer::announceSoon(const std::string& app, const std::string& properties) const {
    GVariant* const dictionary =
        g_variant_parse(G_VARIANT_TYPE_VARDICT, properties.c_str(), nullptr, nullptr, nullptr);
    const std::string address = "application://" + app + ".desktop";
    g_dbus_connection_emit_signal(bus_.connection(), nullptr,
                                  "/com/canonical/unity/launcherentry/1",
                                  "com.canonical.Unity.LauncherEntry", "Update",
                                  g_variant_new("(s@a{sv})", address.c_str(), dictionary), nullptr);
}

}
