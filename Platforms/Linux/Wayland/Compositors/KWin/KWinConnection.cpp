#include "Compositors/KWin/KWinConnection.hpp"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <utility>

namespace vireline::wayland {
namespace {

constexpr const char* kwinName = "org.kde.KWin";
constexpr const char* scriptingPath = "/Scripting";
constexpr const char* scriptingInterface = "org.kde.kwin.Scripting";
constexpr const char* scriptInterface = "org.kde.kwin.Script";

/// The number of a loaded script; negative if it was not loaded.
int numberIn(GVariant* reply) {
    std::int32_t number = -1;
    if (g_variant_is_of_type(reply, G_VARIANT_TYPE("(i)")) != FALSE)
        g_variant_get(reply, "(i)", &number);
    return number;
}

}

/// When all calls for one script must have ended.
class KWinConnection::Deadline {
public:
    explicit Deadline(double seconds)
        : end_(Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                  std::chrono::duration<double>{seconds})) {}

    /// The time left in milliseconds, at least 1, because GIO does not wait at all if it is 0.
    [[nodiscard]] int remaining() const {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end_ - Clock::now());
        return std::max(1, static_cast<int>(left.count()));
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point end_;
};

struct KWinConnection::Events {
    static void appeared(GDBusConnection* /*bus*/, const char* /*name*/, const char* /*owner*/,
                         gpointer data) {
        static_cast<KWinConnection*>(data)->isAvailable_ = true;
    }
    static void vanished(GDBusConnection* /*bus*/, const char* /*name*/, gpointer data) {
        static_cast<KWinConnection*>(data)->isAvailable_ = false;
    }
};

KWinConnection::KWinConnection(const Connect& connect) {
    connect(lifetime_.guard([this](Result<Bus> bus) { connected(std::move(bus)); }));
}

KWinConnection::~KWinConnection() {
    if (watch_ != 0)
        g_bus_unwatch_name(watch_);
}

void KWinConnection::connected(Result<Bus> bus) {
    if (!bus)
        return;
    bus_ = *std::move(bus);
    watch_ = g_bus_watch_name_on_connection(bus_.get(), kwinName, G_BUS_NAME_WATCHER_FLAGS_NONE,
                                            Events::appeared, Events::vanished, this, nullptr);
}

/// KWin takes scripts only from files.
Result<void> KWinConnection::run(const std::string& script, double seconds) {
    if (!isAvailable_)
        return std::unexpected{PlatformError{ENOTCONN, "KWin cannot be reached"}};
    const Deadline deadline{seconds};
    const QDir folder{QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)};
    QTemporaryFile file{folder.filePath(QStringLiteral("vireline-XXXXXX.js"))};
    if (!file.open() || file.write(script.data(), static_cast<qint64>(script.size())) < 0 ||
        !file.flush())
        return std::unexpected{PlatformError{EIO, "no file for a script can be written"}};
    const std::string name = file.fileName().toStdString();
    const auto loaded = call(scriptingPath, scriptingInterface, "loadScript",
                             g_variant_new("(ss)", name.c_str(), name.c_str()), deadline);
    if (!loaded)
        return std::unexpected{loaded.error()};
    const int number = numberIn(loaded->get());
    if (number < 0)
        return std::unexpected{PlatformError{EPROTO, "KWin does not load a script"}};
    auto outcome = runLoaded(std::to_string(number), deadline);
    unload(name, deadline);
    return outcome;
}

/// KWin 5 has its scripts at another path.
Result<void> KWinConnection::runLoaded(const std::string& number, const Deadline& deadline) {
    auto outcome =
        call(("/Scripting/Script" + number).c_str(), scriptInterface, "run", nullptr, deadline);
    if (!outcome && outcome.error().code == G_DBUS_ERROR_UNKNOWN_OBJECT)
        outcome = call(('/' + number).c_str(), scriptInterface, "run", nullptr, deadline);
    if (!outcome)
        return std::unexpected{outcome.error()};
    return {};
}

/// Waits, because until KWin has unloaded a script, it may give that script's number to another
/// one, which then cannot be run.
void KWinConnection::unload(const std::string& name, const Deadline& deadline) {
    (void)call(scriptingPath, scriptingInterface, "unloadScript",
               g_variant_new("(s)", name.c_str()), deadline);
}

Result<xdg::GLibHandle<GVariant, g_variant_unref>>
KWinConnection::call(const char* path, const char* interfaceName, const char* method,
                     GVariant* parameters, const Deadline& deadline) {
    GError* raw = nullptr;
    xdg::GLibHandle<GVariant, g_variant_unref> reply{g_dbus_connection_call_sync(
        bus_.get(), kwinName, path, interfaceName, method, parameters, nullptr,
        G_DBUS_CALL_FLAGS_NO_AUTO_START, deadline.remaining(), nullptr, &raw)};
    const xdg::GErrorHandle error{raw};
    if (!reply)
        return std::unexpected{PlatformError{error->code, error->message}};
    return reply;
}

}
