#include "Soak/SettingsSteps.hpp"

#include "Settings/SettingsCoding.hpp"
#include "Soak/SoakChecks.hpp"
#include "Soak/SoakWorld.hpp"
#include "VirtualDesktop/Waiting.hpp"

#include <array>
#include <filesystem>
#include <optional>
#include <string>

namespace vireline::desktop {
namespace {

constexpr auto saveFailed = "preferences save failed";

BusObject control(SoakWorld& world, AccessibleRole role, const std::string& name) {
    std::optional<BusObject> found;
    require(eventually([&] {
                found = world.desktop().controls().find(role, name);
                return found.has_value();
            }),
            "the settings have no control " + name);
    return *found;
}

/// Clicks a control at a part of its length.
void click(SoakWorld& world, const BusObject& control, double part = 0.5) {
    const PixelRect frame = world.desktop().controls().frame(control);
    const auto along = static_cast<int>(part * frame.width);
    world.desktop().pointer().click({frame.x + along, frame.center().y});
}

/// Where on the slider a size is that differs from the one in force.
double otherPart(SoakWorld& world) {
    constexpr double middle = 48;
    return world.settings().iconSize < middle ? 0.9 : 0.1;
}

Settings anySettings(SoakWorld& world) {
    Settings settings;
    settings.onboardingCompleted = true;
    constexpr std::array positions{DockPosition::bottom, DockPosition::left, DockPosition::right};
    settings.position = positions.at(world.any(positions.size()));
    settings.iconSize = 32 + static_cast<double>(world.any(33));
    settings.autoHide = world.onceIn(4);
    settings.magnificationEnabled = world.onceIn(2);
    settings.summonOnClick = world.onceIn(2);
    settings.openOnThisDisplay = world.onceIn(2);
    settings.anchorAppleDock = world.onceIn(4);
    return settings;
}

}

void changeSize(SoakWorld& world) {
    if (!world.hasBus())
        return;
    const double before = world.settings().iconSize;
    world.openSettings();
    click(world, control(world, AccessibleRole::slider, "Icon size"), otherPart(world));
    world.awaitSave([&](const Settings& saved) { return saved.iconSize != before; });
    world.closeSettings();
}

void changePosition(SoakWorld& world) {
    if (!world.hasBus())
        return;
    constexpr std::array positions{"Bottom", "Left", "Right"};
    const auto before = world.settings().position;
    const auto other = (static_cast<std::size_t>(before) + 1 + world.any(2)) % positions.size();
    world.openSettings();
    click(world, control(world, AccessibleRole::radioButton, positions.at(other)));
    world.awaitSave(
        [&](const Settings& saved) { return saved.position == static_cast<DockPosition>(other); });
    world.closeSettings();
}

void changeSource(SoakWorld& world) {
    if (!world.hasBus())
        return;
    const bool isMirror = world.settings().sourceMode == SourceMode::mirror;
    world.openSettings();
    click(world, control(world, AccessibleRole::radioButton,
                         isMirror ? "Manual list" : "Mirror Apple's Dock"));
    // A list of the user's own begins as the one that was mirrored.
    world.awaitSave([&](const Settings& saved) {
        return (saved.sourceMode == SourceMode::manual) == isMirror &&
               (!isMirror || !saved.manualApps.empty());
    });
    world.closeSettings();
}

void replacePreferences(SoakWorld& world) {
    constexpr std::array contents{"",         "{",
                                  "[]",       R"({"iconSize": "large"})",
                                  "\xff\xfe", R"({"schemaVersion": 99, "autoHide": null})"};
    const auto file = world.desktop().home().preferences();
    std::filesystem::remove(file);
    writeFile(file, contents.at(world.any(contents.size())));
    world.fileWasReplaced();
}

void failDisk(SoakWorld& world) {
    if (!world.hasBus())
        return;
    const auto file = world.desktop().home().preferences();
    world.openSettings();
    const double before = world.settings().iconSize;
    const auto slider = control(world, AccessibleRole::slider, "Icon size");
    const int failures = world.desktop().log().count(saveFailed);
    std::filesystem::remove(file);
    std::filesystem::create_directories(file / "in the way");
    click(world, slider, otherPart(world));
    const bool isLogged = world.desktop().log().reaches(saveFailed, failures + 1);
    std::filesystem::remove_all(file);
    require(isLogged, "a save that failed is not logged");
    constexpr double middle = 48;
    click(world, slider, before < middle ? 0.7 : 0.3);
    world.awaitSave([&](const Settings& saved) { return saved.iconSize != before; });
    world.closeSettings();
}

void restart(SoakWorld& world) {
    if (world.onceIn(2))
        world.end();
    else
        world.kill();
    if (world.isFileReplaced() || world.onceIn(2)) {
        std::filesystem::remove_all(world.desktop().home().preferences());
        world.desktop().home().writePreferences(SettingsCoding::encode(anySettings(world)));
    }
    world.start();
}

}
