/// A program with plain windows for tests under a Wayland compositor:
///
///     WaylandTestApp [--class ID] [--windows N] [--title TEXT] [--size WxH] [--title-bytes N]
///                    [--delay MS] [--ignore-close] [--record FILE] [--sizes FILE]
///                    [--retitle TEXT] [--titles FILE]
///
/// Ends when its last window is closed. With --record, writes whether it was given an activation
/// token; with --sizes, the size of each window, such as "320x200", whenever it is drawn; with
/// --retitle, changes the titles once the windows have been shown for a tenth of a second; with
/// --titles, the windows have the lines of that file as titles, also once it is written again.
#include <QApplication>
#include <QCloseEvent>
#include <QFileSystemWatcher>
#include <QTimer>
#include <QWidget>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

class Window final : public QWidget {
public:
    Window(bool ignoresClose, std::string sizes)
        : ignoresClose_(ignoresClose), sizes_(std::move(sizes)) {}

protected:
    void paintEvent(QPaintEvent* event) override {
        QWidget::paintEvent(event);
        if (!sizes_.empty())
            std::ofstream{sizes_, std::ios::app} << width() << 'x' << height() << '\n';
    }
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!ignoresClose_); }

private:
    bool ignoresClose_;
    std::string sizes_;
};

std::map<std::string, std::string> options(int count, char** arguments) {
    std::map<std::string, std::string> values;
    for (int i = 1; i < count; ++i) {
        const std::string name = arguments[i];
        values[name] = name != "--ignore-close" && i + 1 < count ? arguments[++i] : "";
    }
    return values;
}

int number(const std::map<std::string, std::string>& values, const char* name, int otherwise) {
    const auto found = values.find(name);
    return found == values.end() ? otherwise : std::stoi(found->second);
}

}

int main(int count, char** arguments) {
    auto values = options(count, arguments);
    const char* const token = std::getenv("XDG_ACTIVATION_TOKEN");
    if (values.contains("--record"))
        std::ofstream{values["--record"]} << (token == nullptr ? "no token" : token) << '\n';
    if (values.contains("--class"))
        QGuiApplication::setDesktopFileName(QString::fromStdString(values["--class"]));
    const QApplication application{count, arguments};
    const auto title = QString::fromStdString(values["--title"]) +
                       QString{number(values, "--title-bytes", 0), QLatin1Char{'x'}};
    const auto size = values.contains("--size") ? values["--size"] : "320x200";
    const auto cross = size.find('x');
    std::vector<std::unique_ptr<Window>> windows;
    const auto readTitles = [&] {
        std::ifstream file{values["--titles"]};
        std::string line;
        for (std::size_t i = 0; i < windows.size() && std::getline(file, line); ++i)
            windows[i]->setWindowTitle(QString::fromStdString(line));
    };
    const auto open = [&] {
        for (int i = 0; i < number(values, "--windows", 1); ++i) {
            auto& window = windows.emplace_back(
                std::make_unique<Window>(values.contains("--ignore-close"), values["--sizes"]));
            window->setWindowTitle(title);
            window->resize(std::stoi(size.substr(0, cross)), std::stoi(size.substr(cross + 1)));
            window->show();
        }
        readTitles();
    };
    const auto retitle = [&] {
        for (const auto& window : windows)
            window->setWindowTitle(QString::fromStdString(values["--retitle"]));
    };
    QFileSystemWatcher watcher;
    if (values.contains("--titles")) {
        watcher.addPath(QString::fromStdString(values["--titles"]));
        QObject::connect(&watcher, &QFileSystemWatcher::fileChanged, readTitles);
    }
    if (values.contains("--retitle"))
        QTimer::singleShot(number(values, "--delay", 0) + 100, retitle);
    QTimer::singleShot(number(values, "--delay", 0), open);
    return QApplication::exec();
}
