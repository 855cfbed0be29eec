#include "App/XcbApplication.hpp"

#include <QByteArray>
#include <algorithm>
#include <optional>

namespace vireline::x11 {
namespace {

/// Takes a variable out of the environment for as long as this lives.
class WithoutVariable {
public:
    explicit WithoutVariable(const char* name) : name_(name) {
        if (qEnvironmentVariableIsSet(name))
            value_ = qgetenv(name);
        qunsetenv(name);
    }
    WithoutVariable(const WithoutVariable&) = delete;
    WithoutVariable& operator=(const WithoutVariable&) = delete;
    WithoutVariable(WithoutVariable&&) = delete;
    WithoutVariable& operator=(WithoutVariable&&) = delete;
    ~WithoutVariable() {
        if (value_)
            qputenv(name_, *value_);
    }

private:
    const char* name_;
    std::optional<QByteArray> value_;
};

/// Else libdbus ends the process when Qt asks something of a session bus that has just gone. Apps
/// that are launched get the environment that this program was given.
void outliveTheSessionBus() {
    constexpr auto variable = "DBUS_FATAL_WARNINGS";
    if (!qEnvironmentVariableIsSet(variable))
        qputenv(variable, "0");
}

std::unique_ptr<QApplication> makeApplication(int& argumentCount, char** arguments) {
    // GIO delivers its results through GLib's main loop, which Qt must therefore run on.
    const WithoutVariable noGLib{"QT_NO_GLIB"};
    outliveTheSessionBus();
    QApplication::setDesktopFileName(QStringLiteral("vireline"));
    QApplication::setApplicationName(QStringLiteral("Vireline"));
    QApplication::setQuitOnLastWindowClosed(false);
    return std::make_unique<QApplication>(argumentCount, arguments);
}

}

// An argument outranks QT_QPA_PLATFORM, and "-name" is the instance part of WM_CLASS.
XcbApplication::XcbApplication()
    : arguments_{"vireline", "-platform", "xcb", "-name", "vireline"}
    , argumentCount_(static_cast<int>(arguments_.size())) {
    std::ranges::transform(arguments_, argumentPointers_.begin(),
                           [](std::string& argument) { return argument.data(); });
    application_ = makeApplication(argumentCount_, argumentPointers_.data());
}

}
