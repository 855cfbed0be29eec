#include "StatusBar/NotifierHosts.hpp"

#include "GLib/WeakData.hpp"

#include <utility>

namespace vireline::xdg {
namespace {

constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";
constexpr const char* hostProperty = "IsStatusNotifierHostRegistered";

using Value = GLibHandle<GVariant, g_variant_unref>;

}

struct NotifierHosts::Watch : std::enable_shared_from_this<Watch>, private NonCopyable {
    using Data = WeakData<Watch>;

    Observable<State> state{State::unknown};
    SessionBus::Connection bus;
    bool hasWatcher = false;
    bool isAnnounced = false;
    guint name = 0;
    guint signals = 0;
    /// Number of the latest query; replies to earlier ones are out of date.
    std::uint64_t question = 0;

    Watch() = default;
    ~Watch() {
        if (name != 0)
            g_bus_unwatch_name(name);
        if (signals != 0)
            g_dbus_connection_signal_unsubscribe(bus.get(), signals);
    }

    void start() {
        SessionBus::connect([weak = weak_from_this()](Result<SessionBus::Connection> connected) {
            const auto self = weak.lock();
            if (!self)
                return;
            if (connected)
                self->follow(*std::move(connected));
            else
                self->state.set(State::absent);
        });
    }

    void follow(SessionBus::Connection connected) {
        bus = std::move(connected);
        signals = g_dbus_connection_signal_subscribe(
            bus.get(), watcherName, watcherName, nullptr, watcherPath, nullptr,
            G_DBUS_SIGNAL_FLAGS_NONE, hostsChanged, Data::make(weak_from_this()), Data::destroy);
        name = g_bus_watch_name_on_connection(bus.get(), watcherName, G_BUS_NAME_WATCHER_FLAGS_NONE,
                                              watcherAppeared, watcherVanished,
                                              Data::make(weak_from_this()), Data::destroy);
    }

    static void watcherAppeared(GDBusConnection* /*bus*/, const gchar* /*name*/,
                                const gchar* /*owner*/, gpointer data) {
        const auto self = Data::lock(data);
        if (!self)
            return;
        self->hasWatcher = true;
        self->announce();
        self->askForHosts();
    }

    static void watcherVanished(GDBusConnection* /*bus*/, const gchar* /*name*/, gpointer data) {
        const auto self = Data::lock(data);
        if (!self)
            return;
        self->hasWatcher = false;
        ++self->question;
        self->state.set(State::absent);
    }

    static void hostsChanged(GDBusConnection* /*bus*/, const gchar* /*sender*/,
                             const gchar* /*path*/, const gchar* /*interface*/, const gchar* signal,
                             GVariant* /*parameters*/, gpointer data) {
        const auto self = Data::lock(data);
        if (self && std::string_view{signal}.starts_with("StatusNotifierHost"))
            self->askForHosts();
    }

    void askForHosts() {
        struct Question {
            std::weak_ptr<Watch> watch;
            std::uint64_t number;
        };
        const auto answered = [](GObject* source, GAsyncResult* result, gpointer data) {
            const std::unique_ptr<Question> asked{static_cast<Question*>(data)};
            const Value reply{
                g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr)};
            const auto self = asked->watch.lock();
            if (!self || self->question != asked->number)
                return;
            self->state.set(reply && saysYes(reply.get()) ? State::present : State::absent);
        };
        auto asked = std::make_unique<Question>(Question{weak_from_this(), ++question});
        g_dbus_connection_call(
            bus.get(), watcherName, watcherPath, "org.freedesktop.DBus.Properties", "Get",
            g_variant_new("(ss)", watcherName, hostProperty), G_VARIANT_TYPE("(v)"),
            G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, answered, asked.release());
    }

    static bool saysYes(GVariant* reply) {
        GVariant* raw = nullptr;
        g_variant_get(reply, "(v)", &raw);
        const Value value{raw};
        return g_variant_is_of_type(value.get(), G_VARIANT_TYPE_BOOLEAN) != FALSE &&
               g_variant_get_boolean(value.get()) != FALSE;
    }

    /// The item is identified by its connection.
    void announce() const {
        if (!isAnnounced || !hasWatcher)
            return;
        g_dbus_connection_call(
            bus.get(), watcherName, watcherPath, watcherName, "RegisterStatusNotifierItem",
            g_variant_new("(s)", g_dbus_connection_get_unique_name(bus.get())), nullptr,
            G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr, nullptr);
    }
};

NotifierHosts::NotifierHosts() : watch_(std::make_shared<Watch>()) {
    watch_->start();
}

NotifierHosts::~NotifierHosts() = default;

NotifierHosts::State NotifierHosts::state() const {
    return watch_->state.get();
}

Subscription NotifierHosts::observe(std::function<void()> listener) {
    return watch_->state.observe(std::move(listener));
}

GDBusConnection* NotifierHosts::bus() const {
    return watch_->bus.get();
}

void NotifierHosts::announceItem() {
    watch_->isAnnounced = true;
    watch_->announce();
}

}
