#include "Applications/Identity/ExecMatching.hpp"

#include "Text/PlainText.hpp"

#include <algorithm>
#include <string_view>

namespace vireline::xdg::ExecMatching {
namespace {

constexpr int same = 3;
constexpr int sameName = 2;
constexpr int hint = 1;

bool isAbsolute(std::string_view path) {
    return path.starts_with('/');
}

/// The archive of every Electron app has the same name, so its folder identifies the app.
std::string archiveOwner(std::string_view script) {
    std::string_view rest = script;
    const auto parent = [&rest] {
        rest = rest.substr(0, std::min(rest.rfind('/'), rest.size()));
        return PlainText::baseName(rest);
    };
    if (const auto name = PlainText::baseName(script); name != "app.asar" && name != "app")
        return {};
    std::string_view folder = parent();
    if (folder == "resources")
        folder = parent();
    return std::string{folder};
}

int programLevel(const AppCommand& entry, const Process& process) {
    const bool isScript = !entry.interpreter.empty() || !process.command.interpreter.empty();
    int best = 0;
    for (const std::string& program : process.programs) {
        if (program.empty() || entry.program.empty())
            continue;
        const bool sameBase = PlainText::baseName(program) == PlainText::baseName(entry.program);
        if (program == entry.program)
            best = std::max(best, same);
        else if (sameBase && !(isAbsolute(program) && isAbsolute(entry.program)))
            best = std::max(best, sameName);
        else if (sameBase && !isScript)
            best = std::max(best, hint);
    }
    return best;
}

int snapLevel(const AppCommand& entry, const Process& process) {
    const bool isInside = process.command.snap == entry.snap ||
                          process.facts.executable.starts_with("/snap/" + entry.snap + '/');
    if (!isInside && process.facts.snap != entry.snap)
        return 0;
    const bool isOtherApp =
        !process.facts.snapApp.empty() && process.facts.snapApp != entry.snapApp;
    return isOtherApp || !isInside ? hint : same;
}

int windowsLevel(const AppCommand& entry, const Process& process) {
    if (process.command.windowsProgram != entry.windowsProgram)
        return 0;
    const std::string path = PlainText::folded(process.command.program);
    const auto isPath = [&path](const std::string& word) {
        return PlainText::folded(word) == path;
    };
    return std::ranges::any_of(entry.arguments, isPath) ? same : sameName;
}

int levelOf(const AppCommand& entry, const Process& process) {
    if (!entry.flatpakID.empty() || !process.facts.flatpakID.empty())
        return entry.flatpakID == process.facts.flatpakID ? same : 0;
    if (!entry.snap.empty())
        return snapLevel(entry, process);
    if (!entry.windowsProgram.empty() || !process.command.windowsProgram.empty())
        return windowsLevel(entry, process);
    return programLevel(entry, process);
}

bool isOption(std::string_view word) {
    return word.starts_with('-');
}

}

Process prepared(const ProcessFacts& facts) {
    Process process;
    process.facts = facts;
    process.command = AppCommands::fromArguments(facts.arguments);
    process.sortedArguments = process.command.arguments;
    std::ranges::sort(process.sortedArguments);
    process.programs.push_back(process.command.program);
    if (process.command.interpreter.empty())
        process.programs.push_back(facts.executable);
    else
        process.programs.push_back(archiveOwner(process.command.program));
    return process;
}

std::optional<Quality> quality(const IndexedEntry& entry, const Process& process) {
    const AppCommand& command = entry.command;
    if (entry.entry.terminal || !command.windowClasses.empty() ||
        isInterpreterOfScript(entry, process))
        return std::nullopt;
    Quality quality{.program = levelOf(command, process)};
    if (quality.program == 0)
        return std::nullopt;
    // Under Wine the arguments are the loader's, and without a command line a process is known by
    // its name alone.
    if (!command.windowsProgram.empty() || process.facts.arguments.empty())
        return quality;
    for (const std::string& argument : command.arguments) {
        if (std::ranges::binary_search(process.sortedArguments, argument))
            ++quality.presentArguments;
        else if (isOption(argument))
            --quality.missingOptions;
        else
            return std::nullopt;
    }
    return quality;
}

bool isInterpreterOfScript(const IndexedEntry& entry, const Process& process) {
    return !process.command.interpreter.empty() && AppCommands::isBareInterpreter(entry.command);
}

}
