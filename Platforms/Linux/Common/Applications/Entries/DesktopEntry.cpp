#include "Applications/Entries/DesktopEntry.hpp"

#include "Applications/Identity/PlainText.hpp"
#include "GLib/GLibHandles.hpp"

#include <algorithm>

namespace vireline::xdg::DesktopEntries {
namespace {

/// The kernel's limit for a single argument.
constexpr std::size_t maximumCommandBytes = 128UL * 1024;
constexpr std::size_t maximumIconBytes = 4096;

/// The group "Desktop Entry" of a file.
class Group {
public:
    explicit Group(std::string_view text)
        : isLoaded_(g_key_file_load_from_data(file_.get(), text.data(), text.size(),
                                              G_KEY_FILE_NONE, nullptr) != FALSE) {}

    [[nodiscard]] bool isLoaded() const noexcept { return isLoaded_; }

    [[nodiscard]] std::string text(const char* key) const {
        return owned(g_key_file_get_string(file_.get(), name, key, nullptr));
    }

    /// In the user's language.
    [[nodiscard]] std::string translatedText(const char* key) const {
        return owned(g_key_file_get_locale_string(file_.get(), name, key, nullptr, nullptr));
    }

    [[nodiscard]] std::string cleanText(const char* key, std::size_t maximumBytes) const {
        return PlainText::clean(text(key), maximumBytes);
    }

    [[nodiscard]] bool has(const char* key) const {
        return g_key_file_has_key(file_.get(), name, key, nullptr) != FALSE;
    }

    [[nodiscard]] bool flag(const char* key) const {
        return g_key_file_get_boolean(file_.get(), name, key, nullptr) != FALSE;
    }

    [[nodiscard]] bool listHas(const char* key, const char* item) const {
        const GLibHandle<char*, g_strfreev> list{
            g_key_file_get_string_list(file_.get(), name, key, nullptr, nullptr)};
        return list && g_strv_contains(list.get(), item) != FALSE;
    }

private:
    static std::string owned(char* raw) {
        const GLibHandle<char, g_free> text{raw};
        return text ? text.get() : std::string{};
    }

    static constexpr const char* name = G_KEY_FILE_DESKTOP_GROUP;

    GLibHandle<GKeyFile, g_key_file_unref> file_{g_key_file_new()};
    bool isLoaded_;
};

}

std::optional<DesktopEntry> parse(std::string_view text, std::string id, std::string path) {
    const Group group{text};
    if (!group.isLoaded())
        return std::nullopt;
    DesktopEntry entry;
    entry.id = std::move(id);
    entry.path = std::move(path);
    entry.name = PlainText::clean(group.translatedText(G_KEY_FILE_DESKTOP_KEY_NAME));
    if (entry.name.empty())
        entry.name = group.cleanText(G_KEY_FILE_DESKTOP_KEY_NAME, PlainText::maximumNameBytes);
    entry.icon = group.cleanText(G_KEY_FILE_DESKTOP_KEY_ICON, maximumIconBytes);
    entry.exec = group.text(G_KEY_FILE_DESKTOP_KEY_EXEC);
    if (entry.exec.size() > maximumCommandBytes)
        entry.exec.clear();
    entry.tryExec = group.cleanText(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC, maximumIconBytes);
    entry.startupWMClass =
        group.cleanText(G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS, PlainText::maximumNameBytes);
    entry.noDisplay = group.flag(G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY);
    entry.hidden = group.flag(G_KEY_FILE_DESKTOP_KEY_HIDDEN);
    entry.dBusActivatable = group.flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE);
    entry.terminal = group.flag(G_KEY_FILE_DESKTOP_KEY_TERMINAL);
    entry.isTerminalEmulator = group.listHas(G_KEY_FILE_DESKTOP_KEY_CATEGORIES, "TerminalEmulator");
    if (group.has(G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY))
        entry.startupNotify = group.flag(G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY);

    const bool isApplication = group.text(G_KEY_FILE_DESKTOP_KEY_TYPE) == "Application";
    const bool canStart = !entry.exec.empty() || entry.dBusActivatable;
    const bool isValid = entry.hidden || (isApplication && !entry.name.empty() && canStart);
    return isValid ? std::optional{std::move(entry)} : std::nullopt;
}

std::string idFor(std::string_view relativePath) {
    if (relativePath.ends_with(extension))
        relativePath.remove_suffix(extension.size());
    std::string id{relativePath};
    std::ranges::replace(id, '/', '-');
    return id;
}

}
