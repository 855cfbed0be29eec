/// The whole program on two displays, on a platform whose calls can be made to fail, and the
/// actions of a user. An action whose target is missing because a call failed earlier does nothing.
#pragma once

#include "App/AppDelegate.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Support/FaultyPlatform.hpp"
#include "Support/LoggedLines.hpp"

#include <initializer_list>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vireline::test {

class FaultWorld : private NonCopyable {
public:
    static constexpr std::uint32_t display = 2;

    FaultWorld();

    /// State of the settings file.
    struct Disk {
        /// The content before the program started; empty if there was no file.
        std::string textBefore;
        /// The current content.
        std::string text;
        /// The content of the last successful save.
        std::optional<std::string> lastSave;
        /// The settings in `text`; nullopt if it is damaged.
        std::optional<Settings> settings;
    };

    /// The externally visible state of the program.
    struct Snapshot {
        /// The tiles and the position of every dock.
        std::vector<std::string> docks;
        int watchesOfTheDesktopsDock = 0;
        bool isPointerGuarded = false;

        bool operator==(const Snapshot&) const = default;
    };

    /// Writes the file that the program finds when it starts.
    void store(const Settings& settings);
    [[nodiscard]] Disk disk() const;

    void start();
    void quit();

    void pass(double seconds) { platform.fake.runLoop.advance(seconds); }
    void click(const std::string& label);
    void doubleClick(const std::string& label);
    /// Chooses the entry with this title from the tile's menu.
    void chooseFromMenu(const std::string& label, const std::string& title);
    void dragTile(const std::string& label, const std::string& onto);
    /// Drops another program's file on a tile.
    void dropOn(const std::string& label, const FileURL& file);
    /// Sets a control of the settings window.
    void set(SettingsField field, const FormValue& value);
    void act(OnboardingAction action);
    void announceScreens();

    [[nodiscard]] Snapshot look();

    FaultyPlatform platform;
    LoggedLines log;
    AppRef finder;
    AppRef mail;
    AppRef notes;
    /// An app that is not pinned.
    AppRef visitor;
    /// The preferences file of the desktop's own dock.
    FileURL desktopsDock;
    /// The content of the settings file when the program last quit.
    std::optional<std::string> textAtQuit;

private:
    [[nodiscard]] FakePanel* dock() const;
    /// The tile's position after everything has settled.
    [[nodiscard]] std::optional<Point> tile(const std::string& label);
    void send(std::initializer_list<PointerEvent::Kind> kinds, Point at);
    [[nodiscard]] FileURL preferences() const;

    std::string textBefore_;
    std::unique_ptr<AppDelegate> delegate_;
};

inline std::ostream& operator<<(std::ostream& out, const FaultWorld::Snapshot& snapshot) {
    for (const std::string& dock : snapshot.docks)
        out << dock << "; ";
    return out << snapshot.watchesOfTheDesktopsDock << " watches, pointer "
               << (snapshot.isPointerGuarded ? "guarded" : "free");
}

}
