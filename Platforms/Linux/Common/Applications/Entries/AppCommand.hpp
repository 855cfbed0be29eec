/// Parses what a command line really starts, looking through wrappers such as `env` and shells, so
/// that an entry's Exec line can be compared with a running process.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

/// At most one of `flatpakID`, `snap` and `windowsProgram` is set; unknown fields are empty.
struct AppCommand {
    /// The program, or the script, archive or class that an interpreter runs; an absolute path or a
    /// bare word of the command line.
    std::string program;
    /// The interpreter's name, if `program` is what it runs.
    std::string interpreter;
    std::string flatpakID;
    std::string snap;
    /// The snap's own name for the app.
    std::string snapApp;
    /// A Windows program's file name, lower-cased, such as "foo.exe".
    std::string windowsProgram;
    /// The WM_CLASS that the command line sets, or that follows from the web page it opens.
    std::vector<std::string> windowClasses;
    /// The program's own arguments, without field codes.
    std::vector<std::string> arguments;

    bool operator==(const AppCommand&) const = default;
};

namespace AppCommands {

/// Splits a command line as a shell would, without expanding anything. Empty if a quote is not
/// closed, as GIO does not start such a command either.
[[nodiscard]] std::vector<std::string> words(std::string_view commandLine);

/// Parses an entry's Exec line.
[[nodiscard]] AppCommand fromExec(std::string_view exec);

/// Parses a process's arguments, its own name first.
[[nodiscard]] AppCommand fromArguments(std::vector<std::string> arguments);

/// Whether `command` starts an interpreter without giving it anything to run.
[[nodiscard]] bool isBareInterpreter(const AppCommand& command);

}
}
