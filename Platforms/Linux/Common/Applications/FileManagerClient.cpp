#include "Applications/FileManagerClient.hpp"

#include "GLib/GLibHandles.hpp"
#include "GLib/SessionBus.hpp"

#include <memory>
#include <utility>

namespace vireline::xdg {
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

void show(GDBusConnection* bus, std::unique_ptr<Call> call) {
    GVariantBuilder uris;
    g_variant_builder_init(&uris, G_VARIANT_TYPE_STRING_ARRAY);
    for (const auto& uri : call->uris)
        g_variant_builder_add(&uris, "s", uri.c_str());
    g_dbus_connection_call(bus, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                           "org.freedesktop.FileManager1", "ShowItems",
                           g_variant_new("(ass)", &uris, ""), nullptr, G_DBUS_CALL_FLAGS_NONE,
                           FileManagerClient::timeoutMilliseconds, nullptr, replied,
                           call.release());
}

}

void FileManagerClient::showItems(std::vector<std::string> uris,
                                  std::function<void(Result<void>)> done) {
    const Call call{std::move(uris), lifetime_.guard(std::move(done))};
    SessionBus::connect([call](const Result<SessionBus::Connection>& bus) {
        if (bus)
            show(bus->get(), std::make_unique<Call>(call));
        else
            call.done(std::unexpected{bus.error()});
    });
}

}
