/// What a command line starts, seen through the wrappers that desktops put around programs: the
/// common ground on which an entry's Exec line and a running process are compared.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11 {

/// At most one of `flatpakID`, `snap` and `windowsProgram` is set; whatever is not known is empty.
struct AppCommand {
    /// The program, or the script, archive or class that an interpreter was given; an absolute path
    /// or the bare word of the command line.
    std::string program;
    /// The interpreter's name when `program` is what it runs.
    std::string interpreter;
    std::string flatpakID;
    std::string snap;
    /// The snap's own name for the program.
    std::string snapApp;
    /// A Windows program's file name in lower case, such as "foo.exe".
    std::string windowsProgram;
    /// The WM_CLASS that the command asks for or that follows from the web page it shows.
    std::vector<std::string> windowClasses;
    /// What is left for the program itself, field codes taken out.
    std::vector<std::string> arguments;

    bool operator==(const AppCommand&) const = default;
};

namespace AppCommands {

/// Splits a command line as a shell would, without expanding anything. Quotes that never close end
/// with the text.
[[nodiscard]] std::vector<std::string> words(std::string_view commandLine);

/// Of an entry's Exec line.
[[nodiscard]] AppCommand fromExec(std::string_view exec);

/// Of a process's arguments, its own name first.
[[nodiscard]] AppCommand fromArguments(std::vector<std::string> arguments);

/// Whether `command` starts an interpreter without giving it anything to run.
[[nodiscard]] bool isBareInterpreter(const AppCommand& command);

}
}
