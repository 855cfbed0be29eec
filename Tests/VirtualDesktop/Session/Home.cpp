#include "VirtualDesktop/Session/Home.hpp"

#include "Foundation/FileURL.hpp"
#include "VirtualDesktop/Screen/Picture.hpp"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view iconThemeIndex = "[Icon Theme]\n"
                                            "Name=Hicolor\n"
                                            "Directories=48x48/apps\n\n"
                                            "[48x48/apps]\n"
                                            "Size=48\n"
                                            "Type=Fixed\n";

std::string escaped(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '&')
            result += "&amp;";
        else if (letter == '<')
            result += "&lt;";
        else
            result += letter;
    }
    return result;
}

std::string tile(const Pin& pin) {
    const std::string url = FileURL::fromPath(pin.entry.string()).absoluteString();
    return "<dict><key>tile-data</key><dict>"
           "<key>file-data</key><dict><key>_CFURLString</key><string>" +
           escaped(url) +
           "</string></dict>"
           "<key>file-label</key><string>" +
           escaped(pin.name) +
           "</string>"
           "<key>bundle-identifier</key><string>" +
           escaped(pin.id) + "</string></dict></dict>\n";
}

std::string listOf(std::span<const Pin> pins) {
    std::string list = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<plist version=\"1.0\"><dict><key>persistent-apps</key><array>\n";
    for (const auto& pin : pins)
        list += tile(pin);
    return list + "</array></dict></plist>\n";
}

/// Quotes an argument for an Exec key.
std::string execArgument(std::string_view argument) {
    // Field codes are recognised only outside quotes.
    if (argument.starts_with('%'))
        return std::string{argument};
    return '"' + std::string{argument} + '"';
}

}

std::string windowClass(const App& app) {
    return app.id;
}

Home::Home(fs::path testApp) : testApp_(std::move(testApp)) {
    for (const auto* name :
         {"home/Downloads", "home/.local/share", "home/.config", "home/.cache", "home/.local/state",
          "share/applications", "share/icons/hicolor/48x48/apps", "etc", "scratch"})
        fs::create_directories(root_.path() / name);
    fs::create_directory(root_.path() / "run");
    fs::permissions(root_.path() / "run", fs::perms::owner_all);
    writeFile(root_.path() / "share/icons/hicolor/index.theme", iconThemeIndex);
    // The state after the first run.
    writePreferences(R"({"onboardingCompleted": true})");
}

fs::path Home::dataFolder() const {
    return folder() / ".local/share/Vireline";
}

fs::path Home::preferences() const {
    return dataFolder() / "preferences.json";
}

fs::path Home::log() const {
    return dataFolder() / "vireline.log";
}

fs::path Home::dockPreferences() const {
    return folder() / "Library/Preferences/com.apple.dock.plist";
}

Environment Home::environment() const {
    const auto home = folder();
    const char* path = std::getenv("PATH");
    return {{"HOME", home.string()},
            {"PATH", path == nullptr ? "/usr/bin:/bin" : path},
            {"LANG", "C.UTF-8"},
            {"XDG_DATA_HOME", (home / ".local/share").string()},
            {"XDG_CONFIG_HOME", (home / ".config").string()},
            {"XDG_CACHE_HOME", (home / ".cache").string()},
            {"XDG_STATE_HOME", (home / ".local/state").string()},
            {"XDG_RUNTIME_DIR", (root_.path() / "run").string()},
            {"XDG_DATA_DIRS", (root_.path() / "share").string()},
            {"XDG_CONFIG_DIRS", (root_.path() / "etc").string()},
            // An address without a bus, since GIO would start one if there were no address.
            {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (root_.path() / "run/no-bus").string()},
            // Leaks are not checked, because programs are ended by a signal.
            {"ASAN_OPTIONS", "detect_leaks=0:abort_on_error=0"},
            {"UBSAN_OPTIONS", "print_stacktrace=1"}};
}

fs::path Home::entry(std::string_view id) const {
    return root_.path() / "share/applications" / (std::string{id} + ".desktop");
}

fs::path Home::installEntry(std::string_view id, std::string_view content) const {
    auto file = entry(id);
    // Renamed into place, as package managers do, so that a partly written entry is never read.
    replaceFile(file, content);
    return file;
}

std::string Home::paintIcon(const App& app) const {
    constexpr int side = 128;
    const fs::path icon = root_.path() / "share/pixmaps" / (app.id + ".png");
    fs::create_directories(icon.parent_path());
    Picture{side, side, app.colour}.writePNG(icon);
    return icon.string();
}

fs::path Home::install(const App& app) const {
    std::ostringstream entry;
    entry << "[Desktop Entry]\nType=Application\nName=" << app.name
          << "\nIcon=" << (app.icon.empty() ? paintIcon(app) : app.icon)
          << "\nStartupWMClass=" << windowClass(app)
          << "\nStartupNotify=true\nExec=" << execArgument(testApp_.string()) << " --class "
          << execArgument(windowClass(app)) << " --title " << execArgument(app.name);
    for (const auto& argument : app.arguments)
        entry << ' ' << execArgument(argument);
    entry << '\n';
    for (const auto& key : app.keys)
        entry << key << '\n';
    return installEntry(app.id, entry.str());
}

void Home::uninstall(const App& app) const {
    fs::remove(entry(app.id));
}

void Home::setFileManager(const std::string& id) const {
    writeFile(root_.path() / "share/applications/mimeapps.list",
              "[Default Applications]\ninode/directory=" + id +
                  ".desktop\nx-scheme-handler/trash=" + id + ".desktop\n");
}

std::string Home::dockList(std::span<const App> apps) const {
    std::vector<Pin> pins;
    for (const auto& app : apps)
        pins.push_back({app.id, app.name, entry(app.id)});
    return listOf(pins);
}

void Home::pin(std::span<const App> apps) const {
    writeFile(dockPreferences(), dockList(apps));
}

void Home::pin(std::span<const Pin> pins) const {
    writeFile(dockPreferences(), listOf(pins));
}

void Home::writePreferences(std::string_view json) const {
    writeFile(preferences(), json);
}

std::string readFile(const fs::path& file) {
    std::ifstream in{file, std::ios::binary};
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

void writeFile(const fs::path& file, std::string_view content) {
    fs::create_directories(file.parent_path());
    std::ofstream out{file, std::ios::binary | std::ios::trunc};
    out << content;
    out.close();
    if (!out)
        throw std::runtime_error{"cannot write " + file.string()};
}

void replaceFile(const fs::path& file, std::string_view content) {
    auto temporary = file;
    temporary += ".new";
    writeFile(temporary, content);
    fs::rename(temporary, file);
}

}
