#include "Applications/Identity/ProcessFacts.hpp"

#include "Files/BoundedFile.hpp"
#include "Text/PlainText.hpp"
#include "Text/TextLines.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <optional>

namespace vireline::xdg::ProcessInspection {
namespace {

constexpr std::size_t maximumTextBytes = 8192;

std::string linkTarget(const std::string& path) {
    std::array<char, PATH_MAX> buffer{};
    const ssize_t length = readlink(path.c_str(), buffer.data(), buffer.size());
    std::string target{buffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0};
    // Appended by the kernel if the executable was replaced, for example by an update.
    constexpr std::string_view deleted = " (deleted)";
    if (target.ends_with(deleted))
        target.resize(target.size() - deleted.size());
    return target;
}

/// The path component that begins with `start` and ends with ".scope", without both.
std::optional<std::string_view> scope(std::string_view text, std::string_view start) {
    constexpr std::string_view end = ".scope";
    for (std::size_t at = text.find(start); at != std::string_view::npos;
         at = text.find(start, at + 1)) {
        const std::string_view rest = text.substr(at, text.find_first_of("/\n", at) - at);
        const bool isComponent = at == 0 || text[at - 1] == '/';
        if (isComponent && rest.ends_with(end) && rest.size() > start.size() + end.size())
            return rest.substr(start.size(), rest.size() - start.size() - end.size());
    }
    return std::nullopt;
}

/// systemd escapes "-" in names as "\x2d".
std::string unescaped(std::string_view name) {
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool isDash = name.substr(i).starts_with("\\x2d");
        text += isDash ? '-' : name[i];
        i += isDash ? 3 : 0;
    }
    return text;
}

}

std::vector<std::string> argumentsIn(std::string_view text) {
    std::vector<std::string> arguments;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\0'), text.size());
        arguments.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return arguments;
}

void addControlGroup(ProcessFacts& facts, std::string_view text) {
    // snap.NAME.APP-UUID.scope; older releases have a dot before the UUID.
    if (const auto snap = scope(text, "snap.")) {
        const std::size_t dot = std::min(snap->find('.'), snap->size());
        facts.snap = unescaped(snap->substr(0, dot));
        std::string_view app = snap->substr(std::min(dot + 1, snap->size()));
        constexpr std::size_t uuidLength = 36;
        if (app.size() > uuidLength + 1)
            app.remove_suffix(uuidLength + 1);
        facts.snapApp = unescaped(app);
    }
    // app-flatpak-ID-NUMBER.scope
    if (const auto flatpak = scope(text, "app-flatpak-"))
        facts.flatpakID = unescaped(flatpak->substr(0, flatpak->rfind('-')));
}

std::string flatpakIDIn(std::string_view text) {
    bool isInGroup = false;
    while (!text.empty()) {
        const std::string_view line = TextLines::takeLine(text);
        constexpr std::string_view key = "name=";
        if (line.starts_with('['))
            isInGroup = line == "[Application]";
        else if (isInGroup && line.starts_with(key))
            return PlainText::clean(line.substr(key.size()));
    }
    return {};
}

ProcessFacts read(std::int32_t processIdentifier) {
    ProcessFacts facts;
    if (processIdentifier <= 0)
        return facts;
    const std::string folder = "/proc/" + std::to_string(processIdentifier);
    facts.executable = linkTarget(folder + "/exe");
    facts.arguments =
        argumentsIn(BoundedFile::readStart(folder + "/cmdline", maximumArgumentBytes));
    addControlGroup(facts, BoundedFile::readStart(folder + "/cgroup", maximumTextBytes));
    if (facts.flatpakID.empty()) {
        const auto info = BoundedFile::read(folder + "/root/.flatpak-info", maximumTextBytes);
        facts.flatpakID = flatpakIDIn(info.value_or(""));
    }
    return facts;
}

}
