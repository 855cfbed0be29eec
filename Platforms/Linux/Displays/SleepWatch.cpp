#include "Displays/SleepWatch.hpp"

#include <gio/gio.h>

#include <utility>

namespace vireline::x11 {

struct SleepWatch::State {
    std::function<void()> onResume;
    GCancellable* connecting = g_cancellable_new();
    GDBusConnection* bus = nullptr;
    guint subscription = 0;

    explicit State(std::function<void()> callback) : onResume(std::move(callback)) {}
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    State(State&&) = delete;
    State& operator=(State&&) = delete;
    ~State() {
        if (bus != nullptr) {
            g_dbus_connection_signal_unsubscribe(bus, subscription);
            g_object_unref(bus);
        }
        g_object_unref(connecting);
    }

    /// What GIO keeps for its callbacks: it must not keep the state itself alive.
    using Handle = std::weak_ptr<State>;

    static void deleteHandle(gpointer data) {
        const std::unique_ptr<Handle> handle{static_cast<Handle*>(data)};
    }

    static void connected(GObject* /*source*/, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Handle> handle{static_cast<Handle*>(data)};
        GDBusConnection* const bus = g_bus_get_finish(result, nullptr);
        if (bus == nullptr)
            return;
        const auto state = handle->lock();
        if (!state) {
            g_object_unref(bus);
            return;
        }
        // A bus that goes away must not take the program along.
        g_dbus_connection_set_exit_on_close(bus, FALSE);
        state->bus = bus;
        state->subscription = g_dbus_connection_signal_subscribe(
            bus, "org.freedesktop.login1", "org.freedesktop.login1.Manager", "PrepareForSleep",
            "/org/freedesktop/login1", nullptr, G_DBUS_SIGNAL_FLAGS_NONE, prepareForSleep,
            std::make_unique<Handle>(state).release(), deleteHandle);
    }

    static void prepareForSleep(GDBusConnection* /*bus*/, const gchar* /*sender*/,
                                const gchar* /*path*/, const gchar* /*interface*/,
                                const gchar* /*signal*/, GVariant* parameters, gpointer data) {
        if (g_variant_is_of_type(parameters, G_VARIANT_TYPE("(b)")) == FALSE)
            return;
        gboolean goesToSleep = FALSE;
        g_variant_get(parameters, "(b)", &goesToSleep);
        const auto state = static_cast<Handle*>(data)->lock();
        if (state && goesToSleep == FALSE)
            state->onResume();
    }
};

SleepWatch::SleepWatch(std::function<void()> onResume)
    : state_(std::make_shared<State>(std::move(onResume))) {
    g_bus_get(G_BUS_TYPE_SYSTEM, state_->connecting, State::connected,
              std::make_unique<State::Handle>(state_).release());
}

SleepWatch::~SleepWatch() {
    g_cancellable_cancel(state_->connecting);
}

}
