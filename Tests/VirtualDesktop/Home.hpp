/// A fresh home for one run of the program: its folders, the applications installed on the virtual
/// computer, and the files that the program reads.
#pragma once

#include "Support/TemporaryFolder.hpp"
#include "VirtualDesktop/ChildProcess.hpp"
#include "VirtualDesktop/Colour.hpp"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

/// An application that can be installed: a desktop entry that starts the test app, with an icon of
/// one colour so that its tile can be told on the screen.
struct App {
    /// The desktop-file ID without ".desktop".
    std::string id;
    std::string name;
    Colour colour;
    /// What the test app is told besides its class; field codes such as "%U" are allowed.
    std::vector<std::string> arguments;
    /// Further lines of the desktop entry.
    std::vector<std::string> keys{};
    /// The name of an icon of the theme, instead of the colour.
    std::string icon{};
};

/// One tile of the desktop's own dock.
struct Pin {
    std::string id;
    std::string name;
    std::filesystem::path entry;
};

/// The class that windows of the app carry.
[[nodiscard]] std::string windowClass(const App& app);

class Home {
public:
    /// `testApp` is the program that all installed apps run.
    explicit Home(std::filesystem::path testApp);

    [[nodiscard]] std::filesystem::path folder() const { return root_.path() / "home"; }
    [[nodiscard]] std::filesystem::path downloads() const { return folder() / "Downloads"; }
    /// Where the program keeps its preferences and its log.
    [[nodiscard]] std::filesystem::path dataFolder() const;
    [[nodiscard]] std::filesystem::path preferences() const;
    [[nodiscard]] std::filesystem::path log() const;
    /// The list that the desktop's own dock keeps.
    [[nodiscard]] std::filesystem::path dockPreferences() const;
    /// Somewhere for a test's own files.
    [[nodiscard]] std::filesystem::path scratch() const { return root_.path() / "scratch"; }

    /// HOME, XDG_… and what any program needs; no display and no bus.
    [[nodiscard]] Environment environment() const;

    /// Installs a desktop entry and its icon, and returns the entry's path.
    std::filesystem::path install(const App& app) const;
    void uninstall(const App& app) const;
    /// Installs a desktop entry of any content.
    std::filesystem::path installEntry(std::string_view id, std::string_view content) const;
    [[nodiscard]] std::filesystem::path entry(std::string_view id) const;

    /// Makes the app with this ID the one that opens folders.
    void setFileManager(const std::string& id) const;

    /// The apps' tiles in the shape of the list that the desktop's own dock keeps.
    [[nodiscard]] std::string dockList(std::span<const App> apps) const;
    /// Writes that list in place.
    void pin(std::span<const App> apps) const;
    void pin(std::span<const Pin> pins) const;

    void writePreferences(std::string_view json) const;

private:
    /// An icon of the app's colour; its path.
    [[nodiscard]] std::string paintIcon(const App& app) const;

    test::TemporaryFolder root_;
    std::filesystem::path testApp_;
};

/// The whole file, empty if there is none.
[[nodiscard]] std::string readFile(const std::filesystem::path& file);

/// Replaces a file's content in place, creating its folder.
void writeFile(const std::filesystem::path& file, std::string_view content);

/// Replaces a file by another that is renamed onto it.
void replaceFile(const std::filesystem::path& file, std::string_view content);

}
