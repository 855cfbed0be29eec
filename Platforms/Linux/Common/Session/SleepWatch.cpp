#include "Session/SleepWatch.hpp"

#include "GLib/GLibHandles.hpp"
#include "GLib/WeakData.hpp"

#include <utility>

namespace vireline::xdg {

struct SleepWatch::State : private NonCopyable {
    /// Weak, so that GIO does not keep the state alive.
    using Data = WeakData<State>;

    std::function<void()> onResume;
    GObjectHandle<GCancellable> connecting{g_cancellable_new()};
    GObjectHandle<GDBusConnection> bus;
    guint subscription = 0;

    explicit State(std::function<void()> callback) : onResume(std::move(callback)) {}
    ~State() {
        if (bus)
            g_dbus_connection_signal_unsubscribe(bus.get(), subscription);
    }

    static void connected(GObject* /*source*/, GAsyncResult* result, gpointer data) {
        GObjectHandle<GDBusConnection> bus{g_bus_get_finish(result, nullptr)};
        const auto state = Data::take(data);
        if (!bus || !state)
            return;
        // By default GIO ends the process when the bus goes away.
        g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
        state->subscription = g_dbus_connection_signal_subscribe(
            bus.get(), "org.freedesktop.login1", "org.freedesktop.login1.Manager",
            "PrepareForSleep", "/org/freedesktop/login1", nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
            prepareForSleep, Data::make(state), Data::destroy);
        state->bus = std::move(bus);
    }

    static void prepareForSleep(GDBusConnection* /*bus*/, const gchar* /*sender*/,
                                const gchar* /*path*/, const gchar* /*interface*/,
                                const gchar* /*signal*/, GVariant* parameters, gpointer data) {
        if (g_variant_is_of_type(parameters, G_VARIANT_TYPE("(b)")) == FALSE)
            return;
        gboolean goesToSleep = FALSE;
        g_variant_get(parameters, "(b)", &goesToSleep);
        const auto state = Data::lock(data);
        if (state && goesToSleep == FALSE)
            state->onResume();
    }
};

SleepWatch::SleepWatch(std::function<void()> onResume)
    : state_(std::make_shared<State>(std::move(onResume))) {
    g_bus_get(G_BUS_TYPE_SYSTEM, state_->connecting.get(), State::connected,
              State::Data::make(state_));
}

SleepWatch::~SleepWatch() {
    g_cancellable_cancel(state_->connecting.get());
}

}
