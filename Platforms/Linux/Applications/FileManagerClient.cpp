#include "Applications/FileManagerClient.hpp"

#include "GLib/GLibHandles.hpp"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace vireline::x11 {
namespace {

struct Call {
    std::vector<std::string> uris;
    std::function<void(Result<void>)> done;
};

void finish(const std::unique_ptr<Call>& call, GError* raw) {
    const GErrorHandle error{raw};
    if (error)
        call->done(
            std::unexpected(PlatformError{.code = error->code, .description = error->message}));
    else
        call->done({});
}

std::unique_ptr<Call> takeCall(gpointer data) {
    return std::unique_ptr<Call>{static_cast<Call*>(data)};
}

void replied(GObject* bus, GAsyncResult* result, gpointer data) {
    const auto call = takeCall(data);
    GError* error = nullptr;
    const GLibHandle<GVariant, g_variant_unref> reply{
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, &error)};
    finish(call, error);
}

void connected(GObject*, GAsyncResult* result, gpointer data) {
    auto call = takeCall(data);
    GError* error = nullptr;
    const GObjectHandle<GDBusConnection> bus{g_bus_get_finish(result, &error)};
    if (!bus) {
        finish(call, error);
        return;
    }
    GVariantBuilder uris;
    g_variant_builder_init(&uris, G_VARIANT_TYPE_STRING_ARRAY);
    for (const auto& uri : call->uris)
        g_variant_builder_add(&uris, "s", uri.c_str());
    g_dbus_connection_call(bus.get(), "org.freedesktop.FileManager1",
                           "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1",
                           "ShowItems", g_variant_new("(ass)", &uris, ""), nullptr,
                           G_DBUS_CALL_FLAGS_NONE, FileManagerClient::timeoutMilliseconds, nullptr,
                           replied, call.release());
}

/// GIO would start a bus of its own where there is none, which serves nobody.
bool hasSessionBus() {
    const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address != nullptr && *address != '\0')
        return true;
    std::error_code error;
    return std::filesystem::exists(std::filesystem::path{g_get_user_runtime_dir()} / "bus", error);
}

}

void FileManagerClient::showItems(std::vector<std::string> uris,
                                  std::function<void(Result<void>)> done) {
    auto call = std::make_unique<Call>(Call{std::move(uris), lifetime_.guard(std::move(done))});
    if (hasSessionBus()) {
        g_bus_get(G_BUS_TYPE_SESSION, nullptr, connected, call.release());
        return;
    }
    const auto fail = [](gpointer data) -> gboolean {
        takeCall(data)->done(
            std::unexpected(PlatformError{.code = ENOENT, .description = "no session bus"}));
        return G_SOURCE_REMOVE;
    };
    g_idle_add(fail, call.release());
}

}
