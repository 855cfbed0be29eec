#include "Compositors/KWinConnection.hpp"

#include <unistd.h>

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

/// The number of a loaded script.
std::string numberIn(GVariant* reply) {
    std::int32_t number = 0;
    g_variant_get(reply, "(i)", &number);
    return std::to_string(number);
}

}

/// When all calls for one script must have ended.
class KWinConnection::Deadline {
public:
    explicit Deadline(double seconds)
        : end_(Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                  std::chrono::duration<double>{seconds})) {}

    /// In milliseconds, for GIO, to which 0 would mean no wait at all.
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
    const auto name = "vireline-" + std::to_string(getpid()) + '-' + std::to_string(++scripts_);
    const auto loaded =
        call(scriptingPath, scriptingInterface, "loadScript",
             g_variant_new("(ss)", file.fileName().toUtf8().constData(), name.c_str()), deadline);
    if (!loaded)
        return std::unexpected{loaded.error()};
    auto outcome = g_variant_is_of_type(loaded->get(), G_VARIANT_TYPE("(i)")) != FALSE
                       ? runLoaded(numberIn(loaded->get()), deadline)
                       : std::unexpected{PlatformError{EPROTO, "KWin does not load a script"}};
    unload(name);
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

/// Not waited for.
void KWinConnection::unload(const std::string& name) {
    g_dbus_connection_call(bus_.get(), kwinName, scriptingPath, scriptingInterface, "unloadScript",
                           g_variant_new("(s)", name.c_str()), nullptr,
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr, nullptr);
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
