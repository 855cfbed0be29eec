/// A fixture with the whole program on the fake platform, and access to what its only dock shows.
#pragma once

#include "App/AppDelegate.hpp"
#include "Settings/SettingsCoding.hpp"
#include "Support/DockFixture.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace vireline::test {

/// The second of the two displays gets a dock.
class AppDelegateTest : public testing::Test {
protected:
    AppDelegateTest() {
        platform.screens.list = {screenWithDock(1, {0, 0, 1920, 1080}),
                                 screenAt(2, {1920, 0, 1920, 1080})};
        finder = platform.install("com.apple.finder", "Finder");
        mail = platform.install("com.apple.mail", "Mail");
        notes = platform.install("com.apple.Notes", "Notes");
        platform.pin({finder, mail});
    }

    void store(const Settings& settings) {
        platform.fileSystem.put(preferences(), SettingsCoding::encode(settings));
    }

    [[nodiscard]] FileURL preferences() const {
        return platform.userFolders.applicationSupport()
            .front()
            .appending("Vireline")
            .appending("preferences.json");
    }

    AppDelegate& start() {
        delegate_ = std::make_unique<AppDelegate>(platform.ports());
        delegate_->applicationDidFinishLaunching();
        return *delegate_;
    }

    /// Ends the program.
    void quit() { delegate_.reset(); }

    /// The dock as shown after all animations have finished.
    [[nodiscard]] FakePanel& dock() {
        auto& panel = platform.panelWindows.panel(2);
        panel.nextFrame();
        platform.runLoop.advance(0.5);
        panel.nextFrame();
        return panel;
    }
    [[nodiscard]] std::vector<SceneNode> icons() {
        auto nodes = dock().scene->nodes;
        std::erase_if(nodes, [](const auto& n) { return n.id.part != NodeID::Part::icon; });
        return nodes;
    }
    void secondaryClickTile(std::size_t index) {
        dock().listener().pointerEvent(
            {PointerEvent::Kind::secondaryPressed, icons().at(index).frame.center()});
    }
    void secondaryClickBesideTheTiles() {
        const Rect icon = icons()[0].frame;
        dock().listener().pointerEvent(
            {PointerEvent::Kind::secondaryPressed, {icon.minX() - 3, icon.midY()}});
    }
    void clickTile(std::size_t index) {
        const Point p = icons().at(index).frame.center();
        dock().listener().pointerEvent({PointerEvent::Kind::pressed, p});
        dock().listener().pointerEvent({PointerEvent::Kind::released, p});
    }
    /// Sets a control of the settings window.
    void set(SettingsField field, const FormValue& value) {
        platform.application.announceSecondStart();
        platform.programWindows.forms.at(0)->listener.formChanged(field, value);
    }
    [[nodiscard]] int reconciles() const {
        return static_cast<int>(std::ranges::count_if(
            log.messages(), [](const auto& line) { return line.starts_with("reconcile "); }));
    }

    FakePlatform platform;
    LoggedLines log;
    AppRef finder;
    AppRef mail;
    AppRef notes;

private:
    std::unique_ptr<AppDelegate> delegate_;
};

}
