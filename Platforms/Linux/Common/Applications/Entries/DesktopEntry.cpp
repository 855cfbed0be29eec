#include "Applications/Entries/DesktopEntry.hpp"

#include "GLib/GLibHandles.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <utility>

namespace vireline::xdg::DesktopEntries {
namespace {

/// The kernel's limit for a single argument.
constexpr std::size_t maximumCommandBytes = 128UL * 1024;
constexpr std::size_t maximumIconBytes = 4096;

/// The groups of a file.
class Groups {
public:
    explicit Groups(std::string_view text)
        : isLoaded_(g_key_file_load_from_data(file_.get(), text.data(), text.size(),
                                              G_KEY_FILE_NONE, nullptr) != FALSE) {}

    [[nodiscard]] bool isLoaded() const noexcept { return isLoaded_; }
    [[nodiscard]] GKeyFile* file() const noexcept { return file_.get(); }

private:
    GLibHandle<GKeyFile, g_key_file_unref> file_{g_key_file_new()};
    bool isLoaded_;
};

/// One group of a file, "Desktop Entry" unless it is named.
class Group {
public:
    explicit Group(const Groups& groups, std::string name = G_KEY_FILE_DESKTOP_GROUP)
        : file_(groups.file()), name_(std::move(name)) {}

    [[nodiscard]] std::string text(const char* key) const {
        return owned(g_key_file_get_string(file_, name_.c_str(), key, nullptr));
    }

    /// In the user's language.
    [[nodiscard]] std::string translatedText(const char* key) const {
        return owned(g_key_file_get_locale_string(file_, name_.c_str(), key, nullptr, nullptr));
    }

    [[nodiscard]] std::string cleanText(const char* key, std::size_t maximumBytes) const {
        return PlainText::clean(text(key), maximumBytes);
    }

    [[nodiscard]] bool has(const char* key) const {
        return g_key_file_has_key(file_, name_.c_str(), key, nullptr) != FALSE;
    }

    [[nodiscard]] bool flag(const char* key) const {
        return g_key_file_get_boolean(file_, name_.c_str(), key, nullptr) != FALSE;
    }

    [[nodiscard]] bool listHas(const char* key, const char* item) const {
        const auto list = listOf(key);
        return list && g_strv_contains(list.get(), item) != FALSE;
    }

    /// At most `most` items.
    [[nodiscard]] std::vector<std::string> list(const char* key, std::size_t most) const {
        std::vector<std::string> items;
        const auto list = listOf(key);
        for (char** item = list.get(); item != nullptr && *item != nullptr && items.size() < most;
             ++item)
            items.emplace_back(*item);
        return items;
    }

    /// Translated and sanitised; the untranslated text if the translation is empty.
    [[nodiscard]] std::string name() const {
        std::string translated = PlainText::clean(translatedText(G_KEY_FILE_DESKTOP_KEY_NAME));
        return translated.empty()
                   ? cleanText(G_KEY_FILE_DESKTOP_KEY_NAME, PlainText::maximumNameBytes)
                   : translated;
    }

private:
    using List = GLibHandle<char*, g_strfreev>;

    [[nodiscard]] List listOf(const char* key) const {
        return List{g_key_file_get_string_list(file_, name_.c_str(), key, nullptr, nullptr)};
    }

    static std::string owned(char* raw) {
        const GLibHandle<char, g_free> text{raw};
        return text ? text.get() : std::string{};
    }

    GKeyFile* file_;
    std::string name_;
};

}

std::optional<DesktopEntry> parse(std::string_view text, std::string id, std::string path) {
    const Groups groups{text};
    if (!groups.isLoaded())
        return std::nullopt;
    const Group group{groups};
    DesktopEntry entry;
    entry.id = std::move(id);
    entry.path = std::move(path);
    entry.name = group.name();
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

std::vector<EntryAction> actions(std::string_view text) {
    const Groups groups{text};
    if (!groups.isLoaded())
        return {};
    const Group entry{groups};
    const bool isActivatable = entry.flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE);
    std::vector<EntryAction> found;
    for (std::string& id : entry.list(G_KEY_FILE_DESKTOP_KEY_ACTIONS, maximumActions)) {
        if (!PlainText::isClean(id))
            continue;
        const Group group{groups, "Desktop Action " + id};
        std::string name = group.name();
        if (name.empty() || (!isActivatable && !group.has(G_KEY_FILE_DESKTOP_KEY_EXEC)))
            continue;
        found.push_back({std::move(id), std::move(name),
                         group.cleanText(G_KEY_FILE_DESKTOP_KEY_ICON, maximumIconBytes)});
    }
    return found;
}

std::string idFor(std::string_view relativePath) {
    if (relativePath.ends_with(extension))
        relativePath.remove_suffix(extension.size());
    std::string id{relativePath};
    std::ranges::replace(id, '/', '-');
    return id;
}
}
