/// A program with plain windows that plays the apps under a Wayland compositor:
///
///     WaylandTestApp [--class ID] [--windows N] [--title TEXT] [--size WxH] [--title-bytes N]
///                    [--colour RRGGBB] [--delay MS] [--crash] [--ignore-close] [--activate]
///                    [--record FILE] [--token FILE] [--sizes FILE] [--retitle TEXT]
///                    [--titles FILE] [--wait-for FILE] [FILE...]
///
/// Ends when its last window is closed. With --record, writes what happens to it; with --token, the
/// activation token that it was given; with --sizes, the size of each window, such as "320x200",
/// whenever it is drawn; with --retitle, changes the titles once the windows have been shown for a
/// tenth of a second; with --titles, the windows have the lines of that file as titles, also once
/// it is written again; with --wait-for, opens its windows once that file exists; with --activate,
/// asks for the focus with its token.
#include <QApplication>
#include <QCloseEvent>
#include <QFileSystemWatcher>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

class Options {
public:
    Options(int count, char** arguments) {
        for (int i = 1; i < count; ++i) {
            const std::string word = arguments[i];
            if (!word.starts_with("--"))
                operands.push_back(word);
            else if (isFlag(word) || i + 1 == count)
                values_[word] = "";
            else
                values_[word] = arguments[++i];
        }
    }

    [[nodiscard]] bool has(const char* name) const { return values_.contains(name); }
    [[nodiscard]] std::string text(const char* name, const char* otherwise = "") const {
        const auto found = values_.find(name);
        return found == values_.end() ? otherwise : found->second;
    }
    [[nodiscard]] int number(const char* name, int otherwise, int base = 10) const {
        return has(name) ? std::stoi(text(name), nullptr, base) : otherwise;
    }

    void record(const std::string& line) const {
        if (has("--record"))
            std::ofstream{text("--record"), std::ios::app} << line << '\n';
    }

    std::vector<std::string> operands;

private:
    static bool isFlag(const std::string& word) {
        return word == "--ignore-close" || word == "--crash" || word == "--activate" ||
               word == "--skip-taskbar" || word == "--keep-startup";
    }

    std::map<std::string, std::string> values_;
};

class Window final : public QWidget {
public:
    explicit Window(const Options& options) : options_(options) {
        constexpr int hexadecimal = 16;
        if (options.has("--colour")) {
            setAutoFillBackground(true);
            setPalette(
                QColor::fromRgb(static_cast<QRgb>(options.number("--colour", 0, hexadecimal))));
        }
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QWidget::paintEvent(event);
        if (options_.has("--sizes")) {
            std::ofstream{options_.text("--sizes"), std::ios::app} << width() << 'x' << height()
                                                                   << '\n';
        }
    }
    void closeEvent(QCloseEvent* event) override {
        const bool ignores = options_.has("--ignore-close");
        options_.record(ignores ? "asked to close" : "closed");
        event->setAccepted(!ignores);
    }

private:
    const Options& options_;
};

std::vector<std::unique_ptr<Window>> openWindows(const Options& options) {
    const auto title = QString::fromStdString(options.text("--title")) +
                       QString{options.number("--title-bytes", 0), QLatin1Char{'x'}};
    const auto size = options.text("--size", "320x200");
    const auto cross = size.find('x');
    std::vector<std::unique_ptr<Window>> windows;
    for (int i = 0; i < options.number("--windows", 1); ++i) {
        auto& window = windows.emplace_back(std::make_unique<Window>(options));
        window->setWindowTitle(title);
        window->resize(std::stoi(size.substr(0, cross)), std::stoi(size.substr(cross + 1)));
        window->show();
        if (options.has("--activate"))
            window->windowHandle()->requestActivate();
    }
    return windows;
}

}

int main(int count, char** arguments) {
    const Options options{count, arguments};
    if (options.has("--crash"))
        std::abort();
    const char* const token = std::getenv("XDG_ACTIVATION_TOKEN");
    for (const std::string& operand : options.operands)
        options.record("open " + operand);
    options.record("started");
    if (options.has("--token"))
        std::ofstream{options.text("--token")} << (token == nullptr ? "none" : token) << '\n';
    if (options.has("--class"))
        QGuiApplication::setDesktopFileName(QString::fromStdString(options.text("--class")));
    const QApplication application{count, arguments};
    std::vector<std::unique_ptr<Window>> windows;
    const auto readTitles = [&] {
        std::ifstream file{options.text("--titles")};
        std::string line;
        for (std::size_t i = 0; i < windows.size() && std::getline(file, line); ++i)
            windows[i]->setWindowTitle(QString::fromStdString(line));
    };
    const auto retitle = [&] {
        for (const auto& window : windows)
            window->setWindowTitle(QString::fromStdString(options.text("--retitle")));
    };
    QFileSystemWatcher watcher;
    if (options.has("--titles")) {
        watcher.addPath(QString::fromStdString(options.text("--titles")));
        QObject::connect(&watcher, &QFileSystemWatcher::fileChanged, readTitles);
    }
    const int delay = options.number("--delay", 0);
    constexpr std::chrono::milliseconds interval{10};
    const std::filesystem::path awaited = options.text("--wait-for");
    while (!awaited.empty() && !std::filesystem::exists(awaited)) {
        // The test is over.
        if (!std::filesystem::exists(awaited.parent_path()))
            return EXIT_FAILURE;
        std::this_thread::sleep_for(interval);
    }
    if (options.has("--retitle"))
        QTimer::singleShot(delay + 100, retitle);
    QTimer::singleShot(delay, [&] {
        windows = openWindows(options);
        readTitles();
    });
    return QApplication::exec();
}
