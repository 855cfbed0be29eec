#include "GLib/SessionBus.hpp"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace vireline::xdg::SessionBus {
namespace {

using Done = std::function<void(Result<Connection>)>;

std::unique_ptr<Done> take(gpointer data) {
    return std::unique_ptr<Done>{static_cast<Done*>(data)};
}

void connected(GObject* /*source*/, GAsyncResult* result, gpointer data) {
    const auto done = take(data);
    GError* raw = nullptr;
    Connection bus{g_bus_get_finish(result, &raw)};
    const GErrorHandle error{raw};
    if (!bus)
        return (*done)(std::unexpected{PlatformError{error->code, error->message}});
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    (*done)(std::move(bus));
}

gboolean failed(gpointer data) {
    (*take(data))(std::unexpected{PlatformError{ENOENT, "no session bus"}});
    return G_SOURCE_REMOVE;
}

/// Without an existing bus, GIO would start one that nothing else uses.
bool exists() {
    const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address != nullptr && *address != '\0')
        return true;
    std::error_code error;
    return std::filesystem::exists(std::filesystem::path{g_get_user_runtime_dir()} / "bus", error);
}

}

void connect(Done done) {
    auto kept = std::make_unique<Done>(std::move(done));
    if (exists())
        g_bus_get(G_BUS_TYPE_SESSION, nullptr, connected, kept.release());
    else
        g_idle_add(failed, kept.release());
}

}
