/// The whole program on two displays of a platform whose calls can be made to fail, and what a user
/// does with it. A step whose object is not there, because a call failed before, does nothing.
#pragma once

#include "App/AppDelegate.hpp"
#include "Support/FaultyPlatform.hpp"
#include "Support/LoggedLines.hpp"

#include <initializer_list>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vireline::test {

class FaultWorld {
public:
    static constexpr std::uint32_t display = 2;

    FaultWorld();
    FaultWorld(const FaultWorld&) = delete;
    FaultWorld& operator=(const FaultWorld&) = delete;
    FaultWorld(FaultWorld&&) = delete;
    FaultWorld& operator=(FaultWorld&&) = delete;
    ~FaultWorld() = default;

    /// The settings' file.
    struct Disk {
        /// Before the program started; empty when there was none.
        std::string textBefore;
        /// Now.
        std::string text;
        /// Of the last save that succeeded.
        std::optional<std::string> lastSave;
        /// What the text says; nothing when it is damaged.
        std::optional<Settings> settings;
    };

    /// How the program stands, as far as one can see it from outside.
    struct Sight {
        /// The tiles and the place of every dock.
        std::vector<std::string> docks;
        int watchesOfTheDesktopsDock = 0;
        bool isPointerGuarded = false;

        bool operator==(const Sight&) const = default;
    };

    /// What the file holds before the program starts.
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
    /// Drops a file of another program's on a tile.
    void dropOn(const std::string& label, const FileURL& file);
    /// Sets a control of the settings window.
    void set(SettingsField field, const FormValue& value);
    void act(OnboardingAction action);
    void announceScreens();

    [[nodiscard]] Sight look();

    FaultyPlatform platform;
    LoggedLines log;
    AppRef finder;
    AppRef mail;
    AppRef notes;
    /// An app that is not pinned.
    AppRef visitor;
    /// The file of the desktop's own dock.
    FileURL desktopsDock;
    /// What the settings' file held when the program ended last.
    std::optional<std::string> textAtQuit;

private:
    [[nodiscard]] FakePanel* dock() const;
    /// Where it lies once everything has come to rest.
    [[nodiscard]] std::optional<Point> tile(const std::string& label);
    void send(std::initializer_list<PointerEvent::Kind> kinds, Point at);
    [[nodiscard]] FileURL preferences() const;

    std::string textBefore_;
    std::unique_ptr<AppDelegate> delegate_;
};

inline std::ostream& operator<<(std::ostream& out, const FaultWorld::Sight& sight) {
    for (const std::string& dock : sight.docks)
        out << dock << "; ";
    return out << sight.watchesOfTheDesktopsDock << " watches, pointer "
               << (sight.isPointerGuarded ? "guarded" : "free");
}

}
