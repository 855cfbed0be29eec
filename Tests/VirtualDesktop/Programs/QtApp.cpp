/// A Qt program with plain windows, for tests of what a real toolkit's windows say and do:
///
///     DesktopQtApp ID TITLE...
///
/// Opens a window for each title, of class ID. On SIGUSR1, its first window asks for attention.
#include <glib-unix.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <csignal>
#include <memory>
#include <vector>

namespace {

/// Qt ignores this for an active window, and takes a window for active until some time after it has
/// lost the focus.
void askForAttention(QWidget* window) {
    constexpr int milliseconds = 20;
    QTimer::singleShot(milliseconds, window, [window] {
        if (window->isActiveWindow())
            return askForAttention(window);
        QApplication::alert(window);
        // Otherwise the request would be sent with whatever Qt sends next.
        QGuiApplication::sync();
    });
}

}

int main(int count, char** arguments) {
    if (count < 3)
        return EXIT_FAILURE;
    // Qt takes the first part of WM_CLASS from the name that the program was started by.
    *arguments = arguments[1];
    const QApplication application{count, arguments};
    QApplication::setApplicationName(QString::fromUtf8(arguments[1]));
    std::vector<std::unique_ptr<QWidget>> windows;
    for (int i = 2; i < count; ++i) {
        const auto& window = windows.emplace_back(std::make_unique<QWidget>());
        window->setWindowTitle(QString::fromUtf8(arguments[i]));
        window->resize(320, 200);
    }
    g_unix_signal_add(
        SIGUSR1,
        [](gpointer window) -> gboolean {
            askForAttention(static_cast<QWidget*>(window));
            return G_SOURCE_CONTINUE;
        },
        windows.front().get());
    for (const auto& window : windows)
        window->show();
    return QApplication::exec();
}
