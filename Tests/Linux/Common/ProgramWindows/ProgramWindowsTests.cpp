/// The program's windows without a screen: how they present a description, and that they keep their
/// widgets when it changes.
#include "Linux/EventLoop.hpp"
#include "ProgramWindows/Controls/Switch.hpp"
#include "ProgramWindows/Controls/ValueSlider.hpp"
#include "ProgramWindows/OnboardingView.hpp"
#include "ProgramWindows/Pages/FormView.hpp"
#include "ProgramWindows/Pages/OnboardingPageView.hpp"
#include "ProgramWindows/SettingsView.hpp"
#include "ProgramWindows/Style/Symbols.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"
#include "Support/RecordingFormListener.hpp"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <cmath>
#include <memory>

namespace vireline::xdg {
namespace {

using AnchorStatus = DockAnchorGuard::Status;

class ProgramWindowsTest : public testing::Test {
protected:
    ProgramWindowsTest() { test::testApplication(); }

    IconTheme theme{{}, "none"};
    Symbols symbols{theme};
};

class FormViewTest : public ProgramWindowsTest {
protected:
    void present(const Settings& settings, AnchorStatus anchor = AnchorStatus::off) {
        view.present(
            SettingsView::form(settings, {.launchesAtLogin = false, .anchorStatus = anchor}, {}));
    }
    /// The visible control with this accessible name; null if there is none.
    template <class Control>
    [[nodiscard]] Control* find(const char* name) const {
        for (QWidget* const widget : view.findChildren<QWidget*>()) {
            auto* const control = dynamic_cast<Control*>(widget);
            if (control != nullptr && widget->isVisibleTo(&view) &&
                (widget->accessibleName() == QLatin1String{name}))
                return control;
        }
        return nullptr;
    }
    [[nodiscard]] std::vector<QWidget*> widgets() const {
        const auto found = view.findChildren<QWidget*>();
        return {found.begin(), found.end()};
    }

    test::RecordingFormListener listener;
    FormView view{{listener, symbols, false}, nullptr};
};

TEST_F(FormViewTest, KeepsItsWidgetsWhenTheSettingsChange) {
    Settings settings;
    settings.magnificationEnabled = true;
    present(settings);
    const auto before = widgets();

    settings.iconSize = 50;
    settings.position = DockPosition::right;
    settings.sourceMode = SourceMode::manual;
    settings.autoHide = true;
    present(settings);

    EXPECT_EQ(widgets(), before);
    EXPECT_EQ(find<ValueSlider>("Icon size")->value(), 18);
    EXPECT_TRUE(find<Switch>("Automatically hide and show the dock")->isChecked());
    EXPECT_TRUE(listener.changes.empty()) << "showing is no choice of the user's";
}

TEST_F(FormViewTest, KeepsARowThatComesAndGoes) {
    Settings settings;
    present(settings);
    EXPECT_EQ(find<ValueSlider>("Magnify to"), nullptr);
    settings.magnificationEnabled = true;
    present(settings);
    auto* const slider = find<ValueSlider>("Magnify to");
    ASSERT_NE(slider, nullptr);

    settings.magnificationEnabled = false;
    present(settings);
    EXPECT_EQ(find<ValueSlider>("Magnify to"), nullptr);
    settings.magnificationEnabled = true;
    present(settings);
    EXPECT_EQ(find<ValueSlider>("Magnify to"), slider);
}

TEST_F(FormViewTest, LeavesASliderAloneThatIsBeingMoved) {
    Settings settings;
    present(settings);
    auto* const slider = find<ValueSlider>("Icon size");
    slider->setSliderDown(true);
    slider->setValue(30);

    settings.iconSize = 40;
    present(settings);
    EXPECT_EQ(slider->value(), 30);

    slider->setSliderDown(false);
    present(settings);
    EXPECT_EQ(slider->value(), 8);
}

TEST_F(FormViewTest, TellsWhatTheUserGaveAControl) {
    present({});

    find<ValueSlider>("Icon size")->setValue(1);
    find<Switch>("Fill the display on double-click")->click();

    using Change = std::pair<SettingsField, FormValue>;
    EXPECT_EQ(listener.changes, (std::vector<Change>{{SettingsField::iconSize, 33.0},
                                                     {SettingsField::fillOnDoubleClick, true}}));
}

TEST_F(FormViewTest, ReportsAnOptionOnceWhenItIsChosen) {
    present({});
    const auto options = view.findChildren<QRadioButton*>();
    ASSERT_EQ(options.size(), 5);

    options[1]->click();
    options[4]->click();

    using Change = std::pair<SettingsField, FormValue>;
    EXPECT_EQ(listener.changes, (std::vector<Change>{{SettingsField::sourceMode, std::size_t{1}},
                                                     {SettingsField::position, std::size_t{2}}}));
}

TEST_F(FormViewTest, ShowsTheStatusLineWithItsButtonOnlyWhileThereIsOne) {
    Settings settings;
    settings.anchorAppleDock = true;
    present(settings, AnchorStatus::waitingForPermission);
    auto* const button = view.findChild<QPushButton*>();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), QStringLiteral("Open Accessibility Settings"));
    button->click();
    EXPECT_EQ(listener.pressed, std::vector{SettingsField::anchorAppleDock});

    present(settings, AnchorStatus::active);
    EXPECT_FALSE(button->isVisibleTo(&view));
    present({});
    EXPECT_FALSE(view.findChildren<QLabel*>().isEmpty());
    EXPECT_FALSE(button->parentWidget()->isVisibleTo(&view));
}

TEST_F(FormViewTest, ShowsValuesWithoutClampingWhatTheFileHolds) {
    Settings settings;
    settings.iconSize = 500;
    present(settings);

    EXPECT_EQ(find<ValueSlider>("Icon size")->value(), 32);
    EXPECT_TRUE(listener.changes.empty());
}

TEST_F(ProgramWindowsTest, HaveASymbolForEveryNameThatTheProgramUses) {
    std::vector<std::string> names{"dock.rectangle", "checkmark.circle.fill"};
    for (int step = 0; step <= OnboardingView::lastStep; ++step) {
        for (const FeatureRow& row : OnboardingView::page(step, {AnchorStatus::active}, {}).rows)
            names.push_back(row.symbol);
    }
    EXPECT_EQ(names.size(), 10U);
    for (const auto& name : names) {
        const QImage image = symbols.image(name, 24, Qt::red);
        ASSERT_EQ(image.size(), QSize(24, 24)) << name;
        int painted = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                painted += image.pixelColor(x, y) == QColor{Qt::red} ? 1 : 0;
        }
        EXPECT_GT(painted, 10) << name;
    }
    EXPECT_TRUE(symbols.image("no such symbol", 24, Qt::red).isNull());
}

TEST_F(ProgramWindowsTest, ShowAPageOfTheTourWithItsButtons) {
    std::vector<OnboardingAction> actions;
    const OnboardingPageView page{OnboardingView::page(2, {AnchorStatus::off}, {}), symbols,
                                  [&](OnboardingAction action) { actions.push_back(action); }};

    for (QPushButton* const button : page.findChildren<QPushButton*>())
        button->click();

    EXPECT_EQ(actions, (std::vector{OnboardingAction::enableFeatures, OnboardingAction::back,
                                    OnboardingAction::finish}));
}

double luminance(const QColor& colour) {
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

TEST(WindowPalette, HasTextThatCanBeReadInLightAndDark) {
    constexpr double readable = 4.5;
    for (const bool isDark : {false, true}) {
        const QPalette palette = WindowPalette::make(isDark, {48, 140, 198});
        EXPECT_EQ(WindowPalette::isDark(palette), isDark);
        for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::Button}) {
            const QColor colour = palette.color(ground);
            EXPECT_GE(contrast(palette.color(QPalette::Text), colour), readable);
            EXPECT_GE(contrast(palette.color(QPalette::PlaceholderText), colour), readable)
                << "dark " << isDark << " ground " << ground;
        }
        EXPECT_GE(contrast(WindowPalette::tone(palette, StatusLine::Tone::warning),
                           palette.color(QPalette::Base)),
                  readable);
    }
}

TEST(WindowPalette, TurnsAnyAccentIntoOneThatShows) {
    constexpr double visible = 2.2;
    for (const QColor& accent : {QColor{Qt::white}, QColor{Qt::black}, QColor{Qt::yellow},
                                 QColor{48, 140, 198}, QColor{233, 84, 32}}) {
        for (const bool isDark : {false, true}) {
            const QPalette palette = WindowPalette::make(isDark, accent);
            const QColor used = palette.color(QPalette::Highlight);
            EXPECT_GE(contrast(used, palette.color(QPalette::Base)), visible)
                << accent.name().toStdString() << isDark;
            EXPECT_GE(contrast(used, palette.color(QPalette::HighlightedText)), visible)
                << accent.name().toStdString() << isDark;
        }
    }
}

}
}
