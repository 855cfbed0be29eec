#include "Session/AutostartEntry.hpp"

#include "Applications/Entries/AppCommand.hpp"
#include "GLib/GLibHandles.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace vireline::xdg::AutostartEntry {
namespace {

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;
constexpr const char* hiddenKey = G_KEY_FILE_DESKTOP_KEY_HIDDEN;
constexpr const char* onlyShowInKey = G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN;
constexpr const char* notShowInKey = G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN;
constexpr const char* execKey = G_KEY_FILE_DESKTOP_KEY_EXEC;
constexpr const char* tryExecKey = G_KEY_FILE_DESKTOP_KEY_TRY_EXEC;
/// GNOME's own switch, which other desktops respect as well.
constexpr const char* switchKey = "X-GNOME-Autostart-enabled";

using KeyFile = GLibHandle<GKeyFile, g_key_file_unref>;
using Names = std::vector<std::string>;

/// Null if the text has no "Desktop Entry" group.
KeyFile parse(const std::string& text) {
    KeyFile file{g_key_file_new()};
    const auto flags =
        // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): C's way with flags
        static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    if (g_key_file_load_from_data(file.get(), text.data(), text.size(), flags, nullptr) == FALSE ||
        g_key_file_has_group(file.get(), group) == FALSE)
        return nullptr;
    return file;
}

std::string textOf(GKeyFile* file) {
    gsize length = 0;
    const GLibHandle<char, g_free> text{g_key_file_to_data(file, &length, nullptr)};
    return {text.get(), length};
}

std::string value(GKeyFile* file, const char* key) {
    const GLibHandle<char, g_free> found{g_key_file_get_string(file, group, key, nullptr)};
    return found ? std::string{found.get()} : std::string{};
}

bool has(GKeyFile* file, const char* key) {
    return g_key_file_has_key(file, group, key, nullptr) != FALSE;
}

void remove(GKeyFile* file, const char* key) {
    g_key_file_remove_key(file, group, key, nullptr);
}

bool isTrue(GKeyFile* file, const char* key) {
    return g_key_file_get_boolean(file, group, key, nullptr) != FALSE;
}

bool isSwitchedOff(GKeyFile* file) {
    return has(file, switchKey) && !isTrue(file, switchKey);
}

Names list(GKeyFile* file, const char* key) {
    gsize count = 0;
    const GLibHandle<char*, g_strfreev> found{
        g_key_file_get_string_list(file, group, key, &count, nullptr)};
    Names names;
    for (gsize i = 0; found && i < count; ++i)
        names.emplace_back(found.get()[i]);
    return names;
}

void setList(GKeyFile* file, const char* key, const Names& names) {
    std::vector<const char*> pointers;
    pointers.reserve(names.size());
    for (const std::string& name : names)
        pointers.push_back(name.c_str());
    g_key_file_set_string_list(file, group, key, pointers.data(), pointers.size());
}

bool contains(std::span<const std::string> names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

/// The first of the desktop's names that is in either list decides.
bool isShownIn(GKeyFile* file, std::span<const std::string> desktopNames) {
    const Names only = list(file, onlyShowInKey);
    const Names except = list(file, notShowInKey);
    for (const std::string& desktop : desktopNames) {
        if (contains(only, desktop))
            return true;
        if (contains(except, desktop))
            return false;
    }
    return !has(file, onlyShowInKey);
}

/// Removes what hides the entry from the desktop, and adds the desktop to OnlyShowIn if that is
/// set.
void showIn(GKeyFile* file, std::span<const std::string> desktopNames) {
    Names except = list(file, notShowInKey);
    std::erase_if(except, [&](const std::string& name) { return contains(desktopNames, name); });
    if (except.empty())
        remove(file, notShowInKey);
    else
        setList(file, notShowInKey, except);
    if (isShownIn(file, desktopNames))
        return;
    Names only = list(file, onlyShowInKey);
    if (desktopNames.empty()) {
        remove(file, onlyShowInKey);
    } else {
        only.push_back(desktopNames.front());
        setList(file, onlyShowInKey, only);
    }
}

bool isValid(GKeyFile* file) {
    return file != nullptr && value(file, G_KEY_FILE_DESKTOP_KEY_TYPE) == "Application" &&
           !value(file, execKey).empty();
}

std::string withCommand(const std::string& command) {
    const KeyFile file{g_key_file_new()};
    const auto set = [&](const char* key, const char* text) {
        g_key_file_set_string(file.get(), group, key, text);
    };
    set(G_KEY_FILE_DESKTOP_KEY_TYPE, "Application");
    set(G_KEY_FILE_DESKTOP_KEY_NAME, "Vireline");
    set(G_KEY_FILE_DESKTOP_KEY_COMMENT, "A dock on every display");
    set(G_KEY_FILE_DESKTOP_KEY_ICON, "vireline");
    set(execKey, command.c_str());
    set(G_KEY_FILE_DESKTOP_KEY_TERMINAL, "false");
    set(G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY, "false");
    set(switchKey, "true");
    return textOf(file.get());
}

/// The path as a single argument in an Exec line, with special characters quoted.
std::string quoted(const std::string& path) {
    constexpr std::string_view harmless =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-+@:";
    if (path.find_first_not_of(harmless) == std::string::npos)
        return path;
    std::string text = "\"";
    for (const char letter : path) {
        if (std::string_view{"\"`$\\"}.contains(letter))
            text += '\\';
        // A single percent sign would start a field code.
        if (letter == '%')
            text += '%';
        text += letter;
    }
    return text + '"';
}

std::string withoutDoubledPercents(std::string word) {
    for (auto at = word.find("%%"); at != std::string::npos; at = word.find("%%", at + 1))
        word.erase(at, 1);
    return word;
}

/// In bytes, including quotes and leading blanks.
std::size_t lengthOfFirstWord(std::string_view command) {
    std::size_t at = std::min(command.find_first_not_of(' '), command.size());
    bool isQuoted = false;
    for (; at < command.size() && (isQuoted || command[at] != ' '); ++at) {
        if (command[at] == '"')
            isQuoted = !isQuoted;
        else if (command[at] == '\\' && at + 1 < command.size())
            ++at;
    }
    return at;
}

}

std::string make(const std::string& programPath) {
    return withCommand(quoted(programPath));
}

bool isUnedited(const std::string& text) {
    const KeyFile file = parse(text);
    return isValid(file.get()) && text == withCommand(value(file.get(), execKey));
}

bool isValid(const std::string& text) {
    return isValid(parse(text).get());
}

bool isEnabled(const std::string& text, std::span<const std::string> desktopNames) {
    const KeyFile file = parse(text);
    return isValid(file.get()) && !isTrue(file.get(), hiddenKey) && !isSwitchedOff(file.get()) &&
           isShownIn(file.get(), desktopNames);
}

std::optional<std::string> enabled(const std::string& text,
                                   std::span<const std::string> desktopNames) {
    // Each pass removes one occurrence of a duplicated key; more duplicates than this are given up
    // on.
    constexpr int maximumPasses = 8;
    std::string edited = text;
    for (int pass = 0; pass < maximumPasses; ++pass) {
        const KeyFile file = parse(edited);
        if (!isValid(file.get()))
            return std::nullopt;
        remove(file.get(), hiddenKey);
        if (isSwitchedOff(file.get()))
            g_key_file_set_boolean(file.get(), group, switchKey, TRUE);
        if (!isShownIn(file.get(), desktopNames))
            showIn(file.get(), desktopNames);
        edited = textOf(file.get());
        if (isEnabled(edited, desktopNames))
            return edited;
    }
    return std::nullopt;
}

std::vector<std::string> neededPrograms(const std::string& text) {
    const KeyFile file = parse(text);
    if (!isValid(file.get()))
        return {};
    std::vector<std::string> programs;
    const auto words = AppCommands::words(value(file.get(), execKey));
    programs.push_back(words.empty() ? std::string{} : withoutDoubledPercents(words.front()));
    if (auto tried = value(file.get(), tryExecKey); !tried.empty())
        programs.push_back(std::move(tried));
    return programs;
}

std::optional<std::string> withProgram(const std::string& text, const std::string& programPath) {
    const KeyFile file = parse(text);
    if (!isValid(file.get()))
        return std::nullopt;
    const std::string before = value(file.get(), execKey);
    const auto words = AppCommands::words(before);
    const bool isSameProgram =
        !words.empty() && PlainText::baseName(words.front()) == PlainText::baseName(programPath);
    const std::string arguments = isSameProgram ? before.substr(lengthOfFirstWord(before)) : "";
    g_key_file_set_string(file.get(), group, execKey, (quoted(programPath) + arguments).c_str());
    if (has(file.get(), tryExecKey))
        g_key_file_set_string(file.get(), group, tryExecKey, programPath.c_str());
    return textOf(file.get());
}

std::optional<std::string> hidden(const std::string& text) {
    const KeyFile file = parse(text);
    if (!file)
        return std::nullopt;
    g_key_file_set_boolean(file.get(), group, hiddenKey, TRUE);
    return textOf(file.get());
}

}
