#include "Wayland/Compositors/KWinDesktop.hpp"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace vireline::wayland {
namespace {

namespace fs = std::filesystem;

double number(GVariant* record, const char* key) {
    double value = 0;
    g_variant_lookup(record, key, "d", &value);
    return value;
}

bool isSet(GVariant* record, const char* key) {
    gboolean flag = FALSE;
    std::int32_t word = 0;
    return (g_variant_lookup(record, key, "b", &flag) != 0 && flag != FALSE) ||
           (g_variant_lookup(record, key, "i", &word) != 0 && word != 0);
}

}

KWinDesktop::KWinDesktop(const fs::path& entries) {
    kwin_.emplace(desktop::KWinProcess::Options{.folder = folder_.path() / "kwin",
                                                .outputs = 2,
                                                .permitsEverything = entries.empty(),
                                                .dataFolders = entries});
    client_.emplace(kwin_->bus());
}

bool KWinDesktop::isInstalled() {
    return fs::exists("/usr/bin/kwin_wayland");
}

desktop::ChildProcess& KWinDesktop::run(std::vector<std::string> arguments) {
    auto variables = kwin_->environment();
    // Qt's plugin leaks what it knows about outputs.
    variables.insert({{"PATH", "/usr/bin:/bin"},
                      {"HOME", folder_.path()},
                      {"XDG_RUNTIME_DIR", folder_.path() / "kwin"},
                      {"LANG", "C.UTF-8"},
                      {"QT_QPA_PLATFORM", "wayland"},
                      {"ASAN_OPTIONS", "detect_leaks=0"}});
    return *programs_.emplace_back(std::make_unique<desktop::ChildProcess>(
        desktop::Command{.program = WAYLAND_TEST_APP,
                         .arguments = std::move(arguments),
                         .environment = std::move(variables),
                         .output = {},
                         .errors = folder_.path() / "programs.log",
                         .inherited = {}}));
}

std::optional<KWinDesktop::Window> KWinDesktop::window(const std::string& uuid) const {
    const auto reply = client_->call({"org.kde.KWin", "/KWin"}, "org.kde.KWin", "getWindowInfo",
                                     g_variant_new("(s)", uuid.c_str()));
    if (!reply)
        return std::nullopt;
    const desktop::Variant record{g_variant_get_child_value(reply.get(), 0)};
    if (g_variant_n_children(record.get()) == 0)
        return std::nullopt;
    Window window;
    window.frame = {number(record.get(), "x"), number(record.get(), "y"),
                    number(record.get(), "width"), number(record.get(), "height")};
    window.isMinimised = isSet(record.get(), "minimized");
    window.isMaximised = isSet(record.get(), "maximizeHorizontal");
    const desktop::Variant desktops{
        g_variant_lookup_value(record.get(), "desktops", G_VARIANT_TYPE("as"))};
    for (gsize i = 0; desktops && i < g_variant_n_children(desktops.get()); ++i) {
        const char* name = nullptr;
        g_variant_get_child(desktops.get(), i, "&s", &name);
        window.desktop += name;
    }
    return window;
}

void KWinDesktop::script(const std::string& text) {
    const auto file = folder_.path() / ("script-" + std::to_string(++scripts_));
    std::ofstream{file} << text;
    const auto reply =
        client_->callOrThrow({"org.kde.KWin", "/Scripting"}, "org.kde.kwin.Scripting", "loadScript",
                             g_variant_new("(ss)", file.c_str(), file.filename().c_str()));
    std::int32_t number = 0;
    g_variant_get(reply.get(), "(i)", &number);
    const auto run = [&](const std::string& path) {
        return client_->call({"org.kde.KWin", path + std::to_string(number)}, "org.kde.kwin.Script",
                             "run", nullptr) != nullptr;
    };
    // The second is KWin 5's.
    if (!run("/Scripting/Script") && !run("/"))
        throw std::runtime_error{"KWin does not run a script"};
}

}
