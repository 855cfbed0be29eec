/// A user's actions in the program's own windows and its menu.
#include "Storm/World.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace vireline::storm {
namespace {

using test::Random;
using Field = SettingsField;

double snapped(double value, double low, double high, double stepsPerUnit) {
    return std::clamp(std::round(value * stepsPerUnit) / stepsPerUnit, low, high);
}

/// The form's switches, with the members of the settings that they set.
struct Switch {
    Field field;
    bool Settings::* member;
};

constexpr std::array switches{Switch{Field::magnificationEnabled, &Settings::magnificationEnabled},
                              Switch{Field::autoHide, &Settings::autoHide},
                              Switch{Field::anchorAppleDock, &Settings::anchorAppleDock},
                              Switch{Field::openOnThisDisplay, &Settings::openOnThisDisplay},
                              Switch{Field::summonOnClick, &Settings::summonOnClick},
                              Switch{Field::fillOnDoubleClick, &Settings::fillOnDoubleClick}};

test::FakeForm& openForm(World& world) {
    world.around.platform.application.announceSecondStart();
    return *world.form();
}

void edit(World& world, const Settings& expected, Field field, const FormValue& value) {
    test::FakeForm& form = openForm(world);
    world.model.write(expected);
    form.listener.formChanged(field, value);
}

void flipSwitch(World& world, Random& random) {
    const Switch& chosen = switches.at(static_cast<std::size_t>(random.integer(0, 5)));
    const bool isOn = random.boolean();
    world.note(' ', static_cast<int>(chosen.field), isOn ? " on" : " off");
    Settings expected = world.model.settings;
    expected.*chosen.member = isOn;
    edit(world, expected, chosen.field, isOn);
}

void chooseSource(World& world, Random& random) {
    const auto option = static_cast<std::size_t>(random.integer(0, 2));
    world.note(' ', option);
    Settings expected = world.model.settings;
    if (option < 2)
        expected.sourceMode = option == 0 ? SourceMode::mirror : SourceMode::manual;
    edit(world, expected, Field::sourceMode, option);
}

void choosePosition(World& world, Random& random) {
    const auto option = static_cast<std::size_t>(random.integer(0, 3));
    world.note(' ', option);
    Settings expected = world.model.settings;
    if (option < 3)
        expected.position = static_cast<DockPosition>(option);
    edit(world, expected, Field::position, option);
}

void slideIconSize(World& world, Random& random) {
    const double value = random.real(20, 80);
    world.note(' ', value);
    Settings expected = world.model.settings;
    expected.iconSize = snapped(value, 32, 64, 1);
    edit(world, expected, Field::iconSize, value);
}

void slideMagnification(World& world, Random& random) {
    const double value = random.real(0.5, 3);
    world.note(' ', value);
    Settings expected = world.model.settings;
    expected.magnification = snapped(value, 1.2, 2, 10);
    edit(world, expected, Field::magnification, value);
}

/// Values that no control can send must change nothing.
void sendNonsense(World& world, Random& random) {
    constexpr std::array fields{Field::sourceMode, Field::position,      Field::iconSize,
                                Field::autoHide,   Field::magnification, Field::summonOnClick};
    const auto index = static_cast<std::size_t>(random.integer(0, 5));
    const bool isToggle = fields.at(index) == Field::autoHide || index == 5;
    const FormValue value = isToggle    ? FormValue{std::numeric_limits<double>::quiet_NaN()}
                            : index < 2 ? FormValue{std::numeric_limits<std::size_t>::max()}
                                        : FormValue{std::numeric_limits<double>::quiet_NaN()};
    edit(world, world.model.settings, fields.at(index), value);
}

void toggleLogin(World& world, bool isFailing) {
    auto& login = world.around.platform.loginItem;
    login.failure.reset();
    if (isFailing)
        login.failure = PlatformError{1, "not allowed"};
    const bool registers = login.current != LoginItemService::Status::enabled;
    if (isFailing)
        world.model.lines.emplace_back("login item toggle failed: not allowed");
    else
        world.model.lines.emplace_back(registers ? "login item registered"
                                                 : "login item unregistered");
}

void launchAtLogin(World& world, Random& random) {
    test::FakeForm& form = openForm(world);
    const bool isOn = random.boolean();
    const bool isEnabled =
        world.around.platform.loginItem.current == LoginItemService::Status::enabled;
    if (isOn != isEnabled)
        toggleLogin(world, random.integer(0, 3) == 0);
    form.listener.formChanged(Field::launchAtLogin, isOn);
}

void useStatusMenu(World& world, Random& random) {
    constexpr std::array titles{"Settings…", "Welcome Tour…", "Launch at Login", "Quit Vireline"};
    const auto* const title = titles.at(static_cast<std::size_t>(random.integer(0, 3)));
    world.note(' ', title);
    if (title == titles[2])
        toggleLogin(world, random.integer(0, 3) == 0);
    if (title == titles[3])
        world.model.lines.emplace_back("quit from menu bar");
    world.around.platform.statusBar.choose(title);
}

void closeProgramWindows(World& world, Random& random) {
    if (world.form() != nullptr && random.boolean())
        world.form()->closeByButton();
    if (world.tour() != nullptr && random.boolean())
        world.tour()->closeByButton();
}

void pressStatusButton(World& world, Random& /*random*/) {
    openForm(world).listener.formStatusButtonPressed(Field::anchorAppleDock);
}

void takeTour(World& world, Random& random) {
    world.around.platform.statusBar.choose("Welcome Tour…");
    const auto action = static_cast<OnboardingAction>(random.integer(0, 3));
    world.note(' ', static_cast<int>(action));
    OnboardingListener& listener = world.tour()->listener;
    Settings expected = world.model.settings;
    if (action == OnboardingAction::enableFeatures) {
        for (bool Settings::* const feature :
             {&Settings::anchorAppleDock, &Settings::openOnThisDisplay, &Settings::summonOnClick,
              &Settings::fillOnDoubleClick}) {
            expected = world.model.settings;
            expected.*feature = true;
            world.model.write(expected);
        }
    } else if (action == OnboardingAction::finish) {
        expected.onboardingCompleted = true;
        world.model.write(expected);
        world.model.lines.emplace_back("onboarding completed");
    }
    listener.onboardingActed(action);
}

void startAgain(World& world, Random& /*random*/) {
    const bool wasOpen = world.form() != nullptr && world.form()->isVisible;
    if (!openForm(world).isVisible)
        world.fail("a second start shows no settings");
    world.note(wasOpen ? " with the settings open" : "");
}

/// The settings file is damaged while the program is not running.
void damageFile(World& world, Random& /*random*/) {
    world.end();
    world.around.platform.fileSystem.put(world.around.preferences(), R"({"iconSize": "large"})");
    world.model.fileIsDamaged = true;
    world.restart();
}

}

std::vector<Event> settingsEvents() {
    return {{"a switch", 16, flipSwitch},
            {"the source", 10, chooseSource},
            {"the position", 6, choosePosition},
            {"the icon size", 8, slideIconSize},
            {"the magnification", 6, slideMagnification},
            {"nonsense from a control", 2, sendNonsense},
            {"launch at login", 3, launchAtLogin},
            {"the status menu", 5, useStatusMenu},
            {"own windows are closed", 4, closeProgramWindows},
            {"a second start", 3, startAgain, true},
            {"the status line's button", 1, pressStatusButton},
            {"the tour", 3, takeTour},
            {"a damaged file", 1, damageFile}};
}

}
