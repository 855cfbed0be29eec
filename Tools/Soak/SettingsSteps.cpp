#include "Soak/SettingsSteps.hpp"

#include "Settings/SettingsCoding.hpp"
#include "Soak/SoakChecks.hpp"
#include "Soak/SoakWorld.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <array>
#include <chrono>
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

/// The point at a fraction of a control's length, after making it visible: on a low display one has
/// to scroll, and a new window may cover the settings.
PixelPoint reach(SoakWorld& world, const BusObject& control, double part) {
    const auto place = [&] {
        const PixelRect frame = world.desktop().controls().frame(control);
        return PixelPoint{frame.x + static_cast<int>(part * frame.width), frame.center().y};
    };
    constexpr int attempts = 20;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (eventually([&] { return world.areSettingsAt(place()); },
                       std::chrono::milliseconds{500}))
            return place();
        world.openSettings();
        world.scrollSettings();
    }
    throw Violation{"a control of the settings is out of reach"};
}

void click(SoakWorld& world, const BusObject& control, double part = 0.5) {
    world.desktop().pointer().click(reach(world, control, part));
}

/// A position on the slider that differs from the current icon size.
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
                         isMirror ? "Manual list" : "Mirror the desktop's dock"));
    // The user's list is initialised from the mirrored one.
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
    world.replaceFile(contents.at(world.any(contents.size())));
}

void failDisk(SoakWorld& world) {
    if (!world.hasBus())
        return;
    const auto file = world.desktop().home().preferences();
    world.openSettings();
    const double before = world.settings().iconSize;
    const auto slider = control(world, AccessibleRole::slider, "Icon size");
    const PixelPoint place = reach(world, slider, otherPart(world));
    const int failures = world.desktop().log().count(saveFailed);
    std::filesystem::remove(file);
    std::filesystem::create_directories(file / "in the way");
    world.desktop().pointer().click(place);
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
