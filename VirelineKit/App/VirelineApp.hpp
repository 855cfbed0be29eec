/// Sets the application up and runs it.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Presentation/Menu.hpp"

#include <optional>
#include <string>

namespace vireline {

struct Platform;
class FileSystem;
class UserFolders;

namespace VirelineApp {

/// Where the log belongs. Creates its folder if necessary; if that fails, lines reach standard
/// output only. Aborts if the system has no folder for application data.
[[nodiscard]] FileURL prepareLogFile(const UserFolders& folders, FileSystem& files);

/// Runs the program until it is told to terminate. Returns the process's exit code.
int run(const Platform& platform, const std::string& devLogPath);

/// The main menu. It is never visible, but its key equivalents work in the program's own windows.
[[nodiscard]] MainMenu hiddenMainMenu();

}
}
