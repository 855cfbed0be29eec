#include "Toolkit/PluginApplication.hpp"

#include "Foundation/NonCopyable.hpp"

#include <QByteArray>
#include <algorithm>
#include <optional>

namespace vireline::xdg {
namespace {

/// Removes a variable from the environment for the lifetime of this object.
class WithoutVariable : private NonCopyable {
public:
    explicit WithoutVariable(const char* name) : name_(name) {
        if (qEnvironmentVariableIsSet(name))
            value_ = qgetenv(name);
        qunsetenv(name);
    }
    ~WithoutVariable() {
        if (value_)
            qputenv(name_, *value_);
    }

private:
    const char* name_;
    std::optional<QByteArray> value_;
};

/// Otherwise libdbus aborts the process when Qt uses a session bus that has just gone away.
/// Launched apps get the environment that this program was started with.
void outliveTheSessionBus() {
    constexpr auto variable = "DBUS_FATAL_WARNINGS";
    if (!qEnvironmentVariableIsSet(variable))
        qputenv(variable, "0");
}

/// Keeps Qt from closing popups when the program becomes inactive.
class PopupKeepingApplication final : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        const bool wouldClosePopups =
            event->type() == QEvent::ApplicationDeactivate && activePopupWidget() != nullptr;
        return wouldClosePopups || QApplication::notify(receiver, event);
    }
};

std::unique_ptr<QApplication> makeApplication(int& argumentCount, char** arguments,
                                              PluginApplication::InactivePopups inactivePopups) {
    // GIO delivers its results through GLib's main loop, so Qt's event loop has to be based on it.
    const WithoutVariable noGLib{"QT_NO_GLIB"};
    outliveTheSessionBus();
    QApplication::setDesktopFileName(QStringLiteral("vireline"));
    QApplication::setApplicationName(QStringLiteral("Vireline"));
    QApplication::setQuitOnLastWindowClosed(false);
    if (inactivePopups == PluginApplication::InactivePopups::stay)
        return std::make_unique<PopupKeepingApplication>(argumentCount, arguments);
    return std::make_unique<QApplication>(argumentCount, arguments);
}

}

// Command-line arguments take precedence over QT_QPA_PLATFORM; "-name" sets the instance part of
// WM_CLASS.
PluginApplication::PluginApplication(const std::string& plugin, InactivePopups inactivePopups)
    : arguments_{"vireline", "-platform", plugin, "-name", "vireline"}
    , argumentCount_(static_cast<int>(arguments_.size())) {
    std::ranges::transform(arguments_, argumentPointers_.begin(),
                           [](std::string& argument) { return argument.data(); });
    application_ = makeApplication(argumentCount_, argumentPointers_.data(), inactivePopups);
}

}
