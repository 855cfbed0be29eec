#include "Applications/Entries/DesktopEntry.hpp"

#include "Applications/Identity/PlainText.hpp"

#include <algorithm>

namespace vireline::xdg::DesktopEntries {
namespace {

/// The kernel's limit for a single argument.
constexpr std::size_t maximumCommandBytes = 128UL * 1024;
constexpr std::size_t maximumIconBytes = 4096;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

/// Resolves the format's escapes for string values; unknown ones are kept as they are.
std::string unescaped(std::string_view value) {
    std::string text;
    text.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        switch (value[++i]) {
        case 's':
            text += ' ';
            break;
        case 'n':
            text += '\n';
            break;
        case 't':
            text += '\t';
            break;
        case 'r':
            text += '\r';
            break;
        case '\\':
            text += '\\';
            break;
        default:
            text += {'\\', value[i]};
        }
    }
    return text;
}

bool isTrue(std::string_view value) {
    return value == "true" || value == "1";
}

bool hasCategory(std::string_view list, std::string_view category) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        if (list.substr(0, end) == category)
            return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

/// Collects the keys of the "Desktop Entry" group.
class Reader {
public:
    Reader(std::span<const std::string> languages, DesktopEntry& entry)
        : languages_(languages), entry_(entry), nameRank_(languages.size() + 1) {}

    void take(std::string_view key, std::string_view value) {
        if (key.starts_with("Name"))
            takeName(key.substr(4), value);
        else if (key == "Type")
            isApplication = value == "Application";
        else if (key == "Icon")
            entry_.icon = PlainText::clean(unescaped(value), maximumIconBytes);
        else if (key == "Exec")
            entry_.exec = value.size() > maximumCommandBytes ? std::string{} : unescaped(value);
        else if (key == "TryExec")
            entry_.tryExec = PlainText::clean(unescaped(value), maximumIconBytes);
        else if (key == "StartupWMClass")
            entry_.startupWMClass = PlainText::clean(unescaped(value));
        else if (key == "Categories")
            entry_.isTerminalEmulator = hasCategory(value, "TerminalEmulator");
        else
            takeFlag(key, isTrue(value));
    }

    bool isApplication = false;

private:
    void takeFlag(std::string_view key, bool value) {
        if (key == "NoDisplay")
            entry_.noDisplay = value;
        else if (key == "Hidden")
            entry_.hidden = value;
        else if (key == "DBusActivatable")
            entry_.dBusActivatable = value;
        else if (key == "Terminal")
            entry_.terminal = value;
        else if (key == "StartupNotify")
            entry_.startupNotify = value;
    }

    /// `locale` is empty or "[language]".
    void takeName(std::string_view locale, std::string_view value) {
        std::size_t rank = languages_.size();
        if (!locale.empty()) {
            if (!locale.starts_with('[') || !locale.ends_with(']'))
                return;
            const auto language = locale.substr(1, locale.size() - 2);
            rank = static_cast<std::size_t>(std::ranges::find(languages_, language) -
                                            languages_.begin());
            if (rank == languages_.size())
                return;
        }
        if (rank >= nameRank_)
            return;
        std::string name = PlainText::clean(unescaped(value));
        if (name.empty())
            return;
        entry_.name = std::move(name);
        nameRank_ = rank;
    }

    std::span<const std::string> languages_;
    DesktopEntry& entry_;
    std::size_t nameRank_;
};

}

std::optional<DesktopEntry> parse(std::string_view text, std::string id, std::string path,
                                  std::span<const std::string> languages) {
    DesktopEntry entry;
    entry.id = std::move(id);
    entry.path = std::move(path);
    Reader reader{languages, entry};
    bool isInGroup = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[')) {
            // Later groups, such as the entry's actions, are ignored.
            if (isInGroup)
                break;
            isInGroup = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (isInGroup && !line.starts_with('#') && equals != std::string_view::npos)
            reader.take(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
    if (entry.hidden)
        return entry;
    const bool canStart = !entry.exec.empty() || entry.dBusActivatable;
    if (!reader.isApplication || entry.name.empty() || !canStart)
        return std::nullopt;
    return entry;
}

std::string idFor(std::string_view relativePath) {
    if (relativePath.ends_with(extension))
        relativePath.remove_suffix(extension.size());
    std::string id{relativePath};
    std::ranges::replace(id, '/', '-');
    return id;
}

}
