/// A fresh home folder for one run of the program: its folders, the installed applications, and the
/// files that the program reads.
#pragma once

#include "Support/TemporaryFolder.hpp"
#include "VirtualDesktop/Processes/ChildProcess.hpp"
#include "VirtualDesktop/Screen/Colour.hpp"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

/// An application that can be installed: a desktop entry that starts the test app, with an icon of
/// one colour so that its tile can be recognised on the screen.
struct App {
    /// The desktop-file ID without ".desktop".
    std::string id;
    std::string name;
    Colour colour;
    /// The test app's arguments besides its class; field codes such as "%U" are allowed.
    std::vector<std::string> arguments;
    /// Additional lines of the desktop entry.
    std::vector<std::string> keys{};
    /// The name of an icon in the theme, instead of the colour.
    std::string icon{};
};

/// A tile of the desktop's own dock.
struct Pin {
    std::string id;
    std::string name;
    std::filesystem::path entry;
};

/// The class of the app's windows.
[[nodiscard]] std::string windowClass(const App& app);

class Home {
public:
    /// `testApp` is the executable that all installed apps run.
    explicit Home(std::filesystem::path testApp);

    [[nodiscard]] std::filesystem::path folder() const { return root_.path() / "home"; }
    [[nodiscard]] std::filesystem::path downloads() const { return folder() / "Downloads"; }
    /// The folder of the program's preferences and log.
    [[nodiscard]] std::filesystem::path dataFolder() const;
    [[nodiscard]] std::filesystem::path preferences() const;
    [[nodiscard]] std::filesystem::path log() const;
    /// The pinned list of the desktop's own dock.
    [[nodiscard]] std::filesystem::path dockPreferences() const;
    /// A folder for a test's own files.
    [[nodiscard]] std::filesystem::path scratch() const { return root_.path() / "scratch"; }

    /// HOME, the XDG variables and what every program needs; no display and no bus.
    [[nodiscard]] Environment environment() const;

    /// Installs a desktop entry and its icon; returns the entry's path.
    std::filesystem::path install(const App& app) const;
    void uninstall(const App& app) const;
    /// Installs a desktop entry with any content.
    std::filesystem::path installEntry(std::string_view id, std::string_view content) const;
    [[nodiscard]] std::filesystem::path entry(std::string_view id) const;

    /// Makes the app with this ID the handler for folders.
    void setFileManager(const std::string& id) const;

    /// The apps' tiles in the format of the desktop's own dock.
    [[nodiscard]] std::string dockList(std::span<const App> apps) const;
    /// Writes that list in place.
    void pin(std::span<const App> apps) const;
    void pin(std::span<const Pin> pins) const;

    void writePreferences(std::string_view json) const;

private:
    /// Creates an icon in the app's colour; returns its path.
    [[nodiscard]] std::string paintIcon(const App& app) const;

    test::TemporaryFolder root_;
    std::filesystem::path testApp_;
};

/// The whole file; empty if it does not exist.
[[nodiscard]] std::string readFile(const std::filesystem::path& file);

/// Overwrites a file in place, creating its folder if necessary.
void writeFile(const std::filesystem::path& file, std::string_view content);

/// Replaces a file by renaming another one over it.
void replaceFile(const std::filesystem::path& file, std::string_view content);

}
