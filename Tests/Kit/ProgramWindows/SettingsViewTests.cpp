#include "ProgramWindows/SettingsView.hpp"
#include "Support/FakeProgramWindows.hpp"
#include "Support/Printing.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace vireline {
namespace {

using Status = DockAnchorGuard::Status;
using test::findRow;
using test::rowOf;

Form formOf(const Settings& settings, Status anchor = Status::off, bool launchesAtLogin = false) {
    return SettingsView::form(settings,
                              {.launchesAtLogin = launchesAtLogin, .anchorStatus = anchor}, {});
}

const std::string& captionOf(const Form& form, SettingsField field) {
    return rowOf(form, field).caption;
}

const Slider& sliderOf(const Form& form, SettingsField field) {
    return std::get<Slider>(rowOf(form, field).control);
}

bool isOn(const Form& form, SettingsField field) {
    return std::get<Toggle>(rowOf(form, field).control).isOn;
}

TEST(SettingsView, HasFiveSectionsInOrder) {
    std::vector<std::string> titles;
    for (const FormSection& section : formOf({}).sections)
        titles.push_back(section.title);

    EXPECT_EQ(titles,
              (std::vector<std::string>{"Apps", "Appearance", "Behaviour", "Windows", "General"}));
}

TEST(SettingsView, HasItsControlsInOrderUnderTheirSections) {
    Settings settings;
    settings.magnificationEnabled = true;
    std::vector<std::string> titles;
    for (const FormSection& section : formOf(settings).sections) {
        for (const FormRow& row : section.rows)
            titles.push_back(section.title + ": " + row.title);
    }

    EXPECT_EQ(titles, (std::vector<std::string>{
                          "Apps: Source",
                          "Appearance: Position on screen",
                          "Appearance: Icon size",
                          "Appearance: Magnification",
                          "Appearance: Magnify to",
                          "Behaviour: Automatically hide and show the dock",
                          "Behaviour: Keep Apple's Dock on its own display",
                          "Windows: Open apps on the dock's display",
                          "Windows: Move windows to the dock you click",
                          "Windows: Fill the display on double-click",
                          "General: Launch at login",
                      }));
}

TEST(SettingsView, OffersTheSourcesAsARadioGroup) {
    Settings settings;
    EXPECT_EQ(std::get<RadioGroup>(rowOf(formOf(settings), SettingsField::sourceMode).control),
              (RadioGroup{{"Mirror Apple's Dock", "Manual list"}, 0}));

    settings.sourceMode = SourceMode::manual;
    EXPECT_EQ(
        std::get<RadioGroup>(rowOf(formOf(settings), SettingsField::sourceMode).control).selected,
        1U);
}

TEST(SettingsView, OffersThePositionsAsSegments) {
    Settings settings;
    std::size_t expected = 0;
    for (const DockPosition position :
         {DockPosition::bottom, DockPosition::left, DockPosition::right}) {
        settings.position = position;
        EXPECT_EQ(std::get<Segments>(rowOf(formOf(settings), SettingsField::position).control),
                  (Segments{{"Bottom", "Left", "Right"}, expected++}));
    }
}

TEST(SettingsView, ShowsEachSwitchAsTheSettingsHaveIt) {
    struct Switch {
        SettingsField field;
        bool Settings::* setting;
    };
    for (const auto& [field, setting] :
         {Switch{SettingsField::magnificationEnabled, &Settings::magnificationEnabled},
          Switch{SettingsField::autoHide, &Settings::autoHide},
          Switch{SettingsField::anchorAppleDock, &Settings::anchorAppleDock},
          Switch{SettingsField::openOnThisDisplay, &Settings::openOnThisDisplay},
          Switch{SettingsField::summonOnClick, &Settings::summonOnClick},
          Switch{SettingsField::fillOnDoubleClick, &Settings::fillOnDoubleClick}}) {
        Settings settings;
        EXPECT_FALSE(isOn(formOf(settings), field));
        settings.*setting = true;
        EXPECT_TRUE(isOn(formOf(settings), field));

        EXPECT_EQ(SettingsView::edited({}, field, true), settings);
        EXPECT_EQ(SettingsView::edited(settings, field, false), Settings{});
    }
}

TEST(SettingsView, ShowsTheLoginSwitchAsTold) {
    EXPECT_FALSE(isOn(formOf({}, Status::off, false), SettingsField::launchAtLogin));
    EXPECT_TRUE(isOn(formOf({}, Status::off, true), SettingsField::launchAtLogin));
}

TEST(SettingsView, ExplainsTheMirroredSource) {
    EXPECT_EQ(captionOf(formOf({}), SettingsField::sourceMode),
              "The second dock follows Apple's Dock automatically. Reordering or adding an app "
              "switches to your own manual list.");
}

TEST(SettingsView, ExplainsTheManualSource) {
    Settings settings;
    settings.sourceMode = SourceMode::manual;
    EXPECT_EQ(captionOf(formOf(settings), SettingsField::sourceMode),
              "Drag apps from Finder onto the dock to add them. Drag tiles to reorder. "
              "Right-click a tile to remove it.");
}

TEST(SettingsView, ExplainsTheBehaviourAndTheWindowFeatures) {
    const Form form = formOf({});
    EXPECT_EQ(captionOf(form, SettingsField::autoHide),
              "The dock collapses to a thin line at the screen edge and returns when the pointer "
              "touches it.");
    EXPECT_EQ(captionOf(form, SettingsField::anchorAppleDock),
              "Stops Apple's Dock from jumping to this dock's display when the cursor pushes the "
              "bottom edge. Needs the Accessibility permission, asked for when you switch it on.");
    EXPECT_EQ(captionOf(form, SettingsField::openOnThisDisplay),
              "An app launched from this dock opens its window on this dock's display.");
    EXPECT_EQ(
        captionOf(form, SettingsField::summonOnClick),
        "Clicking a running app whose window sits on another display brings the window here.");
    EXPECT_EQ(captionOf(form, SettingsField::fillOnDoubleClick),
              "Double-clicking a tile grows the app's window to fill this display's free space, "
              "leaving room for the dock. All three switches use the same Accessibility permission "
              "as the Dock anchor.");
}

TEST(SettingsView, ExplainsNothingThatExplainsItself) {
    Settings settings;
    settings.magnificationEnabled = true;
    const Form form = formOf(settings);
    for (const SettingsField field :
         {SettingsField::position, SettingsField::iconSize, SettingsField::magnificationEnabled,
          SettingsField::magnification, SettingsField::launchAtLogin})
        EXPECT_EQ(captionOf(form, field), "");
}

TEST(SettingsView, SlidesTheIconSizeInWholePoints) {
    EXPECT_EQ(sliderOf(formOf({}), SettingsField::iconSize), (Slider{32, 64, 1, 44, "44"}));
}

TEST(SettingsView, SlidesTheMagnificationInTenthsAndShowsItInPercent) {
    Settings settings;
    settings.magnificationEnabled = true;
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::magnification),
              (Slider{1.2, 2.0, 0.1, 1.5, "150"}));
}

// Behaviour: settings-window-4
TEST(SettingsView, ShowsTheEndsOfTheMagnificationAs120And200) {
    Settings settings;
    settings.magnificationEnabled = true;
    settings.magnification = 1.2;
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::magnification).valueText, "120");
    settings.magnification = 2;
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::magnification).valueText, "200");
}

TEST(SettingsView, ShowsEveryStepOfTheMagnificationAsItsOwnPercentage) {
    Settings settings;
    settings.magnificationEnabled = true;
    for (int tenth = 12; tenth <= 20; ++tenth) {
        // Computed like a slider does, with the same rounding error.
        const double slid = 1.2 + (tenth - 12) * 0.1;
        const Settings moved = SettingsView::edited(settings, SettingsField::magnification, slid);
        EXPECT_EQ(moved.magnification, tenth / 10.0);
        EXPECT_EQ(sliderOf(formOf(moved), SettingsField::magnification).valueText,
                  std::to_string(tenth * 10));
    }
}

TEST(SettingsView, TruncatesWhatLiesBetweenTheSteps) {
    Settings settings;
    settings.magnificationEnabled = true;
    settings.magnification = 1.559;
    settings.iconSize = 44.9;
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::magnification).valueText, "155");
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::iconSize).valueText, "44");
}

TEST(SettingsView, ShowsValuesOutsideARangeAtItsEnd) {
    Settings settings;
    settings.magnificationEnabled = true;
    settings.iconSize = 500;
    settings.magnification = 0.2;
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::iconSize), (Slider{32, 64, 1, 64, "500"}));
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::magnification),
              (Slider{1.2, 2.0, 0.1, 1.2, "20"}));
}

TEST(SettingsView, ShowsAbsurdNumbersWithoutHarm) {
    Settings settings;
    settings.iconSize = 1e300;
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::iconSize).valueText, "99999");
    settings.iconSize = -1e300;
    EXPECT_EQ(sliderOf(formOf(settings), SettingsField::iconSize).value, 32);
}

TEST(SettingsView, OffersTheFactorOnlyWhileMagnificationIsOn) {
    Settings settings;
    EXPECT_EQ(findRow(formOf(settings), SettingsField::magnification), nullptr);
    settings.magnificationEnabled = true;
    EXPECT_NE(findRow(formOf(settings), SettingsField::magnification), nullptr);
}

// Behaviour: settings-window-5
TEST(SettingsView, HasNoStatusLineWithoutTheAnchor) {
    for (const Status status : {Status::off, Status::waitingForPermission, Status::active}) {
        for (const FormSection& section : formOf({}, status).sections) {
            for (const FormRow& row : section.rows)
                EXPECT_EQ(row.status, std::nullopt);
        }
    }
}

TEST(SettingsView, SaysInGreenThatTheAnchorIsActive) {
    Settings settings;
    settings.anchorAppleDock = true;
    const Form form = formOf(settings, Status::active);
    EXPECT_EQ(
        rowOf(form, SettingsField::anchorAppleDock).status,
        (StatusLine{"checkmark.circle.fill", StatusLine::Tone::positive,
                    "Active. Apple's Dock stays where it is.", StatusLine::Tone::neutral, ""}));
}

TEST(SettingsView, SaysInOrangeThatTheAnchorWaitsAndLeadsToThePermission) {
    Settings settings;
    settings.anchorAppleDock = true;
    const Form form = formOf(settings, Status::waitingForPermission);
    EXPECT_EQ(rowOf(form, SettingsField::anchorAppleDock).status,
              (StatusLine{"", StatusLine::Tone::neutral, "Waiting for permission.",
                          StatusLine::Tone::warning, "Open Accessibility Settings"}));
}

TEST(SettingsView, SaysNothingOfAnAnchorThatIsAboutToStart) {
    Settings settings;
    settings.anchorAppleDock = true;
    EXPECT_EQ(rowOf(formOf(settings, Status::off), SettingsField::anchorAppleDock).status,
              std::nullopt);
}

TEST(SettingsView, SaysAtEachWindowFeatureThatNoWindowCanBeMoved) {
    const auto statusOf = [](SettingsField field, bool canMoveWindows) {
        const Form form = SettingsView::form(
            {}, {.anchorStatus = Status::off, .canMoveWindows = canMoveWindows}, {});
        return rowOf(form, field).status;
    };
    for (const SettingsField field :
         {SettingsField::openOnThisDisplay, SettingsField::summonOnClick,
          SettingsField::fillOnDoubleClick}) {
        EXPECT_EQ(statusOf(field, true), std::nullopt);
        EXPECT_EQ(
            statusOf(field, false),
            (StatusLine{"", StatusLine::Tone::neutral,
                        "There is no window manager here that can move other programs' windows.",
                        StatusLine::Tone::warning, ""}));
    }
    EXPECT_EQ(statusOf(SettingsField::anchorAppleDock, false), std::nullopt);
}

TEST(SettingsView, SaysInTheDesktopsWordsWhyNoWindowCanBeMoved) {
    DesktopWords words;
    words.cannotMoveWindows = "Nothing moves here.";
    const Form form =
        SettingsView::form({}, {.anchorStatus = Status::off, .canMoveWindows = false}, words);

    EXPECT_EQ(rowOf(form, SettingsField::summonOnClick).status.value_or(StatusLine{}).text,
              "Nothing moves here.");
}

TEST(SettingsView, TheAnchorNeedsNoWindowManager) {
    Settings settings;
    settings.anchorAppleDock = true;
    for (const Status status : {Status::active, Status::waitingForPermission}) {
        const auto line = [&](bool canMoveWindows) {
            const Form form = SettingsView::form(
                settings, {.anchorStatus = status, .canMoveWindows = canMoveWindows}, {});
            return rowOf(form, SettingsField::anchorAppleDock).status;
        };
        EXPECT_EQ(line(false), line(true));
    }
}

TEST(SettingsView, TakesOverTheChosenOptions) {
    Settings expected;
    expected.sourceMode = SourceMode::manual;
    EXPECT_EQ(SettingsView::edited({}, SettingsField::sourceMode, std::size_t{1}), expected);
    EXPECT_EQ(SettingsView::edited(expected, SettingsField::sourceMode, std::size_t{0}),
              Settings{});

    const auto chosen = [](std::size_t index) {
        return SettingsView::edited({}, SettingsField::position, index).position;
    };
    EXPECT_EQ(chosen(0), DockPosition::bottom);
    EXPECT_EQ(chosen(1), DockPosition::left);
    EXPECT_EQ(chosen(2), DockPosition::right);
}

TEST(SettingsView, BringsSlidValuesToAStepWithinTheRange) {
    const auto size = [](double slid) {
        return SettingsView::edited({}, SettingsField::iconSize, slid).iconSize;
    };
    EXPECT_EQ(size(44.4), 44);
    EXPECT_EQ(size(44.6), 45);
    EXPECT_EQ(size(-3), 32);
    EXPECT_EQ(size(1000), 64);
}

TEST(SettingsView, IgnoresWhatNoSuchControlGives) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(SettingsView::edited({}, SettingsField::position, std::size_t{3}), Settings{});
    EXPECT_EQ(SettingsView::edited({}, SettingsField::position, true), Settings{});
    EXPECT_EQ(SettingsView::edited({}, SettingsField::iconSize, notANumber), Settings{});
    EXPECT_EQ(SettingsView::edited({}, SettingsField::magnification, true), Settings{});
    EXPECT_EQ(SettingsView::edited({}, SettingsField::autoHide, 1.0), Settings{});
    EXPECT_EQ(SettingsView::edited({}, SettingsField::launchAtLogin, true), Settings{});
}

}
}
