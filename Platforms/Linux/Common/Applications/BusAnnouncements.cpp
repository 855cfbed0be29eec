#include "Applications/BusAnnouncements.hpp"

#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/LauncherMessage.hpp"
#include "GLib/GLibHandles.hpp"
#include "GLib/SessionBus.hpp"
#include "GLib/WeakData.hpp"
#include "Sources/LauncherEntries.hpp"

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace vireline::xdg {
namespace {

constexpr const char* launcherInterface = "com.canonical.Unity.LauncherEntry";
/// Apps that use libunity announce something only while this name has an owner.
constexpr const char* launcherName = "com.canonical.Unity";

/// Calls `function` on the main thread, from its loop.
void callSoon(std::function<void()> function) {
    using Function = std::function<void()>;
    const GLibHandle<GSource, g_source_unref> source{g_idle_source_new()};
    g_source_set_priority(source.get(), G_PRIORITY_DEFAULT);
    g_source_set_callback(
        source.get(),
        [](gpointer data) -> gboolean {
            (*static_cast<Function*>(data))();
            return G_SOURCE_REMOVE;
        },
        std::make_unique<Function>(std::move(function)).release(),
        [](gpointer data) { std::unique_ptr<Function>{static_cast<Function*>(data)}.reset(); });
    g_source_attach(source.get(), nullptr);
}

}

/// Used by GIO's thread and by the main thread.
class BusAnnouncements::Mailbox : private NonCopyable {
public:
    /// Called on the main thread.
    std::function<void()> onChange;
    std::function<void(const std::string& sender)> onNewSender;

    static void take(const std::shared_ptr<Mailbox>& box, const std::string& sender,
                     const LauncherMessage& message) {
        const std::scoped_lock lock{box->mutex_};
        if (box->entries_.update(sender, message.app, message.update))
            callSoon([weak = std::weak_ptr{box}, sender] {
                if (const auto alive = weak.lock(); alive && alive->onNewSender)
                    alive->onNewSender(sender);
            });
        tell(box);
    }

    static void remove(const std::shared_ptr<Mailbox>& box, const std::string& sender) {
        const std::scoped_lock lock{box->mutex_};
        box->entries_.remove(sender);
        tell(box);
    }

    static void clear(const std::shared_ptr<Mailbox>& box) {
        const std::scoped_lock lock{box->mutex_};
        box->entries_.clear();
        tell(box);
    }

    [[nodiscard]] std::map<std::string, TileStatus> statuses() {
        const std::scoped_lock lock{mutex_};
        isTold_ = false;
        return entries_.statuses();
    }

private:
    static void tell(const std::shared_ptr<Mailbox>& box) {
        if (std::exchange(box->isTold_, true))
            return;
        callSoon([weak = std::weak_ptr{box}] {
            if (const auto alive = weak.lock(); alive && alive->onChange)
                alive->onChange();
        });
    }

    std::mutex mutex_;
    LauncherEntries entries_;
    /// The main thread has been told, or will be, and has not read the entries since.
    bool isTold_ = false;
};

/// What is registered on the bus. Used by the main thread only, except for the mailbox.
class BusAnnouncements::Connection : private NonCopyable {
public:
    Connection(SessionBus::Connection bus, std::shared_ptr<Mailbox> mailbox)
        : bus_(std::move(bus)), mailbox_(std::move(mailbox)) {}

    void start() {
        filter_ =
            g_dbus_connection_add_filter(bus_.get(), filter, Data::make(mailbox_), Data::destroy);
        // The filter takes the signals; this only makes the bus send them.
        signals_ = g_dbus_connection_signal_subscribe(
            bus_.get(), nullptr, launcherInterface, "Update", nullptr, nullptr,
            G_DBUS_SIGNAL_FLAGS_NONE,
            [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*,
               gpointer) {},
            nullptr, nullptr);
        name_ = g_bus_own_name_on_connection(bus_.get(), launcherName,
                                             G_BUS_NAME_OWNER_FLAGS_ALLOW_REPLACEMENT, nullptr,
                                             nullptr, nullptr, nullptr);
        closed_ = g_signal_connect_data(
            bus_.get(), "closed", G_CALLBACK(closed), Data::make(mailbox_),
            [](gpointer data, GClosure*) { Data::destroy(data); }, G_CONNECT_DEFAULT);
    }
    ~Connection() {
        for (const auto& [sender, watch] : watches_)
            g_bus_unwatch_name(watch);
        g_signal_handler_disconnect(bus_.get(), closed_);
        g_bus_unown_name(name_);
        g_dbus_connection_signal_unsubscribe(bus_.get(), signals_);
        g_dbus_connection_remove_filter(bus_.get(), filter_);
    }

    /// Watches for the end of a program. One that has ended already is reported too.
    void watch(const std::string& sender) {
        if (watches_.contains(sender))
            return;
        watches_[sender] = g_bus_watch_name_on_connection(bus_.get(), sender.c_str(),
                                                          G_BUS_NAME_WATCHER_FLAGS_NONE, nullptr,
                                                          vanished, this, nullptr);
    }

private:
    using Data = WeakData<Mailbox>;

    /// Called on GIO's thread. Returns null for a message that has been taken.
    static GDBusMessage* filter(GDBusConnection*, GDBusMessage* message, gboolean isIncoming,
                                gpointer data) {
        const char* const interface = g_dbus_message_get_interface(message);
        if (isIncoming == FALSE ||
            g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_SIGNAL ||
            g_strcmp0(interface, launcherInterface) != 0)
            return message;
        const GObjectHandle<GDBusMessage> taken{message};
        const char* const sender = g_dbus_message_get_sender(message);
        const auto parsed = LauncherMessage::parse(g_dbus_message_get_body(message));
        const auto box = Data::lock(data);
        if (box && parsed && sender != nullptr)
            Mailbox::take(box, sender, *parsed);
        return nullptr;
    }

    static void vanished(GDBusConnection*, const gchar* sender, gpointer data) {
        auto& self = *static_cast<Connection*>(data);
        const std::string gone = sender;
        if (const auto watch = self.watches_.find(gone); watch != self.watches_.end()) {
            g_bus_unwatch_name(watch->second);
            self.watches_.erase(watch);
        }
        Mailbox::remove(self.mailbox_, gone);
    }

    static void closed(GDBusConnection*, gboolean, GError*, gpointer data) {
        if (const auto box = Data::lock(data))
            Mailbox::clear(box);
    }

    SessionBus::Connection bus_;
    std::shared_ptr<Mailbox> mailbox_;
    guint filter_ = 0;
    guint signals_ = 0;
    guint name_ = 0;
    gulong closed_ = 0;
    std::map<std::string, guint> watches_;
};

BusAnnouncements::BusAnnouncements(const DesktopEntryCatalog& catalog)
    : catalog_(catalog), mailbox_(std::make_shared<Mailbox>()) {
    mailbox_->onChange = [this] { changes_.notify(); };
    mailbox_->onNewSender = [this](const std::string& sender) {
        if (connection_)
            connection_->watch(sender);
    };
    SessionBus::connect([this, weak = std::weak_ptr{mailbox_}](Result<SessionBus::Connection> bus) {
        const auto alive = weak.lock();
        if (!alive || !bus)
            return;
        connection_ = std::make_shared<Connection>(*std::move(bus), alive);
        connection_->start();
    });
}

BusAnnouncements::~BusAnnouncements() {
    mailbox_->onChange = nullptr;
    mailbox_->onNewSender = nullptr;
}

std::map<std::string, TileStatus> BusAnnouncements::current() {
    std::map<std::string, TileStatus> known;
    for (auto& [app, status] : mailbox_->statuses()) {
        // Anything else is no tile's.
        if (catalog_.index().find(app) != nullptr)
            known.emplace(app, status);
    }
    return known;
}

}
