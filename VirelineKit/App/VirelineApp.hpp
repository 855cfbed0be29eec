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

/// Where the diagnostic log belongs. Its folder is created if need be; when that fails, logging
/// fails silently. A system without a folder for application data stops the program.
[[nodiscard]] FileURL prepareLogFile(const UserFolders& folders, FileSystem& files);

/// Runs the program until it is told to terminate; returns the process's exit code.
int run(const Platform& platform, const std::string& devLogPath);

/// The menu that nobody sees as a menu bar, but whose key equivalents work in the program's own
/// windows.
[[nodiscard]] MainMenu hiddenMainMenu();

}
}
