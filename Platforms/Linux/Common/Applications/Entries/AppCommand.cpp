#include "Applications/Entries/AppCommand.hpp"

#include "GLib/GLibHandles.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <ranges>
#include <utility>

namespace vireline::xdg::AppCommands {
namespace {

using Words = std::vector<std::string>;

/// A shell in an Exec line may run another command line; this limits the recursion.
constexpr int maximumNesting = 4;

/// Programs that only run the program named after them.
constexpr std::array<std::string_view, 9> wrappers{
    "env", "exec", "nohup", "setsid", "nice", "gamemoderun", "mangohud", "prime-run", "catchsegv"};

constexpr std::array<std::string_view, 14> interpreters{
    "python", "perl", "ruby", "node",     "nodejs", "gjs",  "gjs-console",
    "java",   "lua",  "mono", "electron", "php",    "wish", "Rscript"};

constexpr std::array<std::string_view, 4> shells{"sh", "bash", "dash", "zsh"};

/// Interpreter options that take the next word as their value.
constexpr std::array<std::string_view, 8> optionsWithValue{
    "-W", "-X", "-cp", "-classpath", "--class-path", "-p", "--module-path", "-I"};

template <std::size_t size>
bool isOneOf(const std::array<std::string_view, size>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

/// "python" from "python3.11".
std::string_view withoutVersion(std::string_view name) {
    const std::size_t last = name.find_last_not_of("0123456789.-");
    return name.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

bool isWineLoader(std::string_view name) {
    return name == "wine" || name == "wine64" || name == "wine-stable" ||
           name == "wine-development" || name == "wine-staging" || name == "wine-preloader" ||
           name == "wine64-preloader";
}

bool isAssignment(std::string_view word) {
    const std::size_t equals = word.find('=');
    return equals != std::string_view::npos && equals > 0 && word.front() != '-' &&
           !word.substr(0, equals).contains('/');
}

bool isOption(std::string_view word) {
    return word.starts_with('-');
}

/// The file name in a Windows path, lower-cased.
std::string windowsBaseName(std::string_view path) {
    const std::size_t slash = path.find_last_of("\\/");
    return PlainText::folded(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::optional<std::string> windowsProgramIn(std::string_view word) {
    std::string name = windowsBaseName(word);
    // Wine's start.exe only opens links; it is not an app's program.
    const bool isProgram = name.ends_with(".exe") && name.size() > 4 && name != "start.exe";
    return isProgram ? std::optional{std::move(name)} : std::nullopt;
}

/// Erases them all at once, because a crafted command line may consist of thousands of wrappers.
void dropWrappers(Words& words) {
    std::size_t first = 0;
    while (first < words.size()) {
        if (isAssignment(words[first])) {
            ++first;
            continue;
        }
        if (!isOneOf(wrappers, PlainText::baseName(words[first])))
            break;
        ++first;
        while (first < words.size() && isOption(words[first])) {
            const bool hasValue = words[first] == "-u" || words[first] == "-n";
            first += hasValue ? 2 : 1;
        }
    }
    first = std::min(first, words.size());
    words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(first));
}

/// The command that a shell is given with -c; nullopt for other command lines.
std::optional<std::string> shellCommand(const Words& words) {
    if (words.empty() || !isOneOf(shells, PlainText::baseName(words.front())))
        return std::nullopt;
    for (std::size_t i = 1; i + 1 < words.size() && isOption(words[i]); ++i) {
        if (words[i].ends_with('c') && !words[i].starts_with("--"))
            return words[i + 1];
    }
    return std::nullopt;
}

/// Takes "NAME" or "NAME.APP".
void setSnap(AppCommand& command, std::string_view name) {
    const std::size_t dot = name.find('.');
    command.snap = name.substr(0, dot);
    command.snapApp = dot == std::string_view::npos ? name : name.substr(dot + 1);
}

void takeFlatpak(AppCommand& command, Words words) {
    const auto run = std::ranges::find(words, "run");
    const auto id = std::find_if_not(run == words.end() ? run : run + 1, words.end(), isOption);
    if (id == words.end()) {
        command.arguments = std::move(words);
        return;
    }
    command.flatpakID = *id;
    for (auto& word : std::ranges::subrange(id + 1, words.end())) {
        if (!word.starts_with("@@"))
            command.arguments.push_back(std::move(word));
    }
}

/// An executable in the snaps' folder belongs to the snap named there.
void takeSnapFromPath(AppCommand& command) {
    std::string_view path = command.program;
    if (path.starts_with("/var/lib/snapd/snap/"))
        path.remove_prefix(std::string_view{"/var/lib/snapd"}.size());
    constexpr std::string_view folder = "/snap/";
    if (!path.starts_with(folder))
        return;
    path.remove_prefix(folder.size());
    const std::size_t end = path.find('/');
    if (end == std::string_view::npos)
        return;
    const std::string_view name = path.substr(0, end);
    if (name == "bin")
        setSnap(command, PlainText::baseName(path));
    else if (!name.starts_with("core") && name != "snapd")
        command.snap = name;
}

/// Looks for the script, module, archive or class behind an interpreter's own options.
void takeInterpreted(AppCommand& command, const Words& words) {
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "-c" || word == "-e")
            return;
        const bool namesProgram = word == "-m" || word == "-jar";
        if (isOption(word) && !namesProgram) {
            i += isOneOf(optionsWithValue, word) ? 1 : 0;
            continue;
        }
        i += namesProgram ? 1 : 0;
        if (i == words.size())
            return;
        command.interpreter = withoutVersion(PlainText::baseName(words.front()));
        command.program = words[i];
        command.arguments.assign(words.begin() + static_cast<std::ptrdiff_t>(i) + 1, words.end());
        return;
    }
}

/// The WM_CLASS instance that Chromium-based browsers give to a window that shows one page as an
/// app: host, underscore, path, with slashes replaced by underscores and trimmed of them.
std::string classForPage(std::string_view url) {
    url.remove_prefix(std::min(url.find("//"), url.size() - 2) + 2);
    url = url.substr(0, url.find_first_of("?#"));
    const std::size_t hostEnd = std::min(url.find('/'), url.size());
    std::string name{url.substr(0, std::min(hostEnd, url.find(':')))};
    name += '_';
    name += url.substr(hostEnd);
    std::ranges::replace(name, '/', '_');
    name.erase(name.find_last_not_of('_') + 1);
    return name;
}

void takeWindowClass(std::vector<std::string>& classes, std::string_view option,
                     std::string_view value) {
    if (option == "--class" || option == "-class" || option == "--name" || option == "-name") {
        classes.emplace_back(value);
    } else if (option == "--app-id") {
        // Edge writes two underscores, other browsers one.
        classes.push_back("crx_" + std::string{value});
        classes.push_back("crx__" + std::string{value});
        classes.emplace_back(value);
    } else if (option == "--app" && value.starts_with("http")) {
        classes.push_back(classForPage(value));
    }
}

std::vector<std::string> windowClassesIn(const Words& arguments) {
    std::vector<std::string> classes;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view word = arguments[i];
        const std::size_t equals = word.find('=');
        constexpr std::string_view steamGame = "steam://rungameid/";
        if (word.starts_with(steamGame))
            classes.push_back("steam_app_" + std::string{word.substr(steamGame.size())});
        else if (isOption(word) && equals != std::string_view::npos)
            takeWindowClass(classes, word.substr(0, equals), word.substr(equals + 1));
        else if (isOption(word) && i + 1 < arguments.size() && word != "--app-id" &&
                 word != "--app")
            takeWindowClass(classes, word, arguments[i + 1]);
    }
    return classes;
}

void takeProgram(AppCommand& command, Words words) {
    const std::string_view name = PlainText::baseName(words.front());
    if (auto windows = windowsProgramIn(words.front())) {
        command.windowsProgram = std::move(*windows);
    } else if (isWineLoader(name)) {
        for (const auto& word : words | std::views::drop(1)) {
            if (command.windowsProgram.empty())
                command.windowsProgram = windowsProgramIn(word).value_or("");
        }
    } else if (isOneOf(interpreters, withoutVersion(name)) || isOneOf(shells, name)) {
        takeInterpreted(command, words);
    }
    if (command.interpreter.empty()) {
        command.program = words.front();
        command.arguments.assign(std::make_move_iterator(words.begin() + 1),
                                 std::make_move_iterator(words.end()));
    }
    takeSnapFromPath(command);
}

AppCommand unwrapped(Words words, int nesting) {
    dropWrappers(words);
    if (const auto inner = shellCommand(words); inner && nesting < maximumNesting)
        return unwrapped(AppCommands::words(*inner), nesting + 1);
    AppCommand command;
    if (words.empty())
        return command;
    const std::string_view name = PlainText::baseName(words.front());
    if (name == "flatpak") {
        takeFlatpak(command, std::move(words));
    } else if (name == "snap" && words.size() > 2 && words[1] == "run") {
        const auto app = std::find_if_not(words.begin() + 2, words.end(), isOption);
        if (app != words.end()) {
            setSnap(command, *app);
            command.arguments.assign(app + 1, words.end());
        }
    } else {
        takeProgram(command, std::move(words));
    }
    command.windowClasses = windowClassesIn(command.arguments);
    return command;
}

bool isFieldCode(std::string_view word) {
    return word.size() == 2 && word.front() == '%';
}

}

std::vector<std::string> words(std::string_view commandLine) {
    char** raw = nullptr;
    if (g_shell_parse_argv(std::string{commandLine}.c_str(), nullptr, &raw, nullptr) == FALSE)
        return {};
    const GLibHandle<char*, g_strfreev> arguments{raw};
    Words words;
    for (char** argument = arguments.get(); *argument != nullptr; ++argument)
        words.emplace_back(*argument);
    return words;
}

AppCommand fromExec(std::string_view exec) {
    Words arguments = words(exec);
    std::erase_if(arguments, isFieldCode);
    return unwrapped(std::move(arguments), 0);
}

AppCommand fromArguments(std::vector<std::string> arguments) {
    return unwrapped(std::move(arguments), 0);
}

bool isBareInterpreter(const AppCommand& command) {
    const std::string_view name = PlainText::baseName(command.program);
    return command.interpreter.empty() &&
           (isOneOf(interpreters, withoutVersion(name)) || isOneOf(shells, name));
}

}
