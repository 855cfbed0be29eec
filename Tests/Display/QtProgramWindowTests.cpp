/// The program's own windows in this process, on a real X server: shortcuts, size on a high-density
/// display, and clean-up after closing.
#include "App/VirelineApp.hpp"
#include "App/X11WindowSystem.hpp"
#include "Display/WindowTest.hpp"
#include "Icons/Themes/IconTheme.hpp"
#include "Platform/Desktop/MotionSettings.hpp"
#include "ProgramWindows/QtProgramWindow.hpp"
#include "ProgramWindows/QtProgramWindows.hpp"
#include "ProgramWindows/SettingsView.hpp"
#include "ProgramWindows/Style/Symbols.hpp"
#include "Toolkit/QtApplication.hpp"
#include "VirtualDesktop/Screen/Pointer.hpp"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QSlider>
#include <string>

namespace vireline {
namespace {

using desktop::Keyboard;
using desktop::PixelRect;

class NoSecondStarts final : public xdg::SecondStarts {
public:
    [[nodiscard]] Subscription observe(std::function<void()> /*handler*/) override { return {}; }
};

class NoMotion final : public MotionSettings {
public:
    [[nodiscard]] bool reducesMotion() const override { return true; }
};

class SilentFormListener final : public FormListener {
public:
    void formChanged(SettingsField /*field*/, const FormValue& value) override {
        values.push_back(value);
    }
    void formStatusButtonPressed(SettingsField /*field*/) override {}

    std::vector<FormValue> values;
};

class QtProgramWindowTest : public test::WindowTest {
protected:
    QtProgramWindowTest() { application.installMainMenu(VirelineApp::hiddenMainMenu()); }

    /// Moves the pointer, which determines the display on which a window opens.
    static void pointAt(const std::string& monitor) {
        desk().pointer().moveTo(desk().monitor(monitor).frame.center());
        EXPECT_TRUE(eventually([&] {
            const auto frame = desk().monitor(monitor).frame;
            const QScreen* const screen = QGuiApplication::screenAt(QCursor::pos());
            return screen != nullptr && screen->geometry().topLeft() == QPoint(frame.x, frame.y);
        }));
    }

    /// Null while the settings window is closed.
    static QWidget* controlNamed(const char* name) {
        for (QWidget* const widget : QApplication::allWidgets()) {
            if (widget->isVisible() && widget->accessibleName() == QLatin1String{name})
                return widget;
        }
        return nullptr;
    }
    static QSlider* sizeSlider() { return dynamic_cast<QSlider*>(controlNamed("Icon size")); }

    /// The visible window with this title; nullopt if there is none.
    static std::optional<PixelRect> frameOf(std::string_view title) {
        for (const xcb_window_t window : client().managedWindows()) {
            if (client().text(window, "_NET_WM_NAME") == title && client().isViewable(window))
                return client().frame(window);
        }
        return std::nullopt;
    }
    static bool hasFocus(std::string_view title) {
        return client().text(client().focusedWindow(), "_NET_WM_NAME") == title;
    }

    std::unique_ptr<FormWindow> showSettings() {
        auto window = windows.makeFormWindow({"Some settings", {480, 640}, true}, listener);
        window->present(SettingsView::form({}, {}, {}));
        window->makeKeyAndOrderFront();
        EXPECT_TRUE(eventually([] { return hasFocus("Some settings"); }));
        settle();
        return window;
    }

    NoSecondStarts noStarts;
    xdg::QtApplication application{*qApp, noStarts};
    xdg::IconTheme theme{{}, "none"};
    xdg::Symbols symbols{theme};
    NoMotion motion;
    xdg::WindowContext context{
        [this](QWindow& window) { x11::X11WindowSystem::bringToFront(connection, window); },
        application, appearance, symbols, motion};
    xdg::QtProgramWindows windows{context};
    SilentFormListener listener;
};

// Behaviour: entry-3
TEST_F(QtProgramWindowTest, TheEditMenusKeysWorkInATextField) {
    xdg::QtProgramWindow window{{"A field", {300, 100}, false}, context};
    auto content = std::make_unique<QLineEdit>();
    QLineEdit& field = *content;
    window.setContent(std::move(content));
    window.placeInTheMiddle();
    window.bringToFront();
    ASSERT_TRUE(eventually([&] { return hasFocus("A field") && field.hasFocus(); }));
    const auto keyboard = desk().keyboard();
    const auto reads = [&](const char* text) {
        return eventually([&] { return field.text() == QLatin1String{text}; });
    };

    for (const char letter : {'d', 'o', 'c', 'k'})
        keyboard.type(static_cast<unsigned char>(letter));
    EXPECT_TRUE(reads("dock"));
    keyboard.typeWithControl('a');
    keyboard.typeWithControl('c');
    keyboard.type(Keyboard::end);
    keyboard.typeWithControl('v');
    EXPECT_TRUE(reads("dockdock"));
    keyboard.typeWithControl('z');
    EXPECT_TRUE(reads("dock"));
    keyboard.typeWithControlAndShift('z');
    EXPECT_TRUE(reads("dockdock"));
    keyboard.typeWithControl('z');
    EXPECT_TRUE(reads("dock"));
    keyboard.typeWithControl('a');
    keyboard.typeWithControl('x');
    EXPECT_TRUE(reads(""));
    keyboard.typeWithControl('v');
    EXPECT_TRUE(reads("dock"));
}

TEST_F(QtProgramWindowTest, IsTwiceAsLargeInPixelsOnADenseDisplay) {
    // 640 points plus a frame exceed the high-density display's 600 points.
    pointAt("main");
    {
        const auto window = showSettings();
        const auto frame = frameOf("Some settings").value_or(PixelRect{});
        EXPECT_EQ(frame.width, 480);
        EXPECT_EQ(frame.height, 640);
    }
    pointAt("dense");
    const auto window = showSettings();
    const auto frame = frameOf("Some settings").value_or(PixelRect{});
    EXPECT_EQ(frame.width, 960);
    EXPECT_TRUE(desk().monitor("dense").frame.contains(frame)) << frame;
}

TEST_F(QtProgramWindowTest, ShowsTheSamePartOfTheFormWithTheSameFocusWhenItIsOpenedAgain) {
    pointAt("main");
    const auto window = showSettings();
    auto* const scroller = QApplication::activeWindow()->findChild<QAbstractScrollArea*>();
    ASSERT_GT(scroller->verticalScrollBar()->maximum(), 40);
    scroller->verticalScrollBar()->setValue(40);
    controlNamed("Launch at login")->setFocus();

    window->close();
    settle();
    window->makeKeyAndOrderFront();
    ASSERT_TRUE(eventually([] { return hasFocus("Some settings"); }));

    EXPECT_TRUE(eventually([] {
        const QWidget* const shown = QApplication::activeWindow();
        return shown != nullptr &&
               shown->findChild<QAbstractScrollArea*>()->verticalScrollBar()->value() == 40;
    }));
    EXPECT_TRUE(
        eventually([] { return QApplication::focusWidget() == controlNamed("Launch at login"); }));
}

TEST_F(QtProgramWindowTest, LeavesNoWidgetBehindWhenItIsClosed) {
    const auto before = QApplication::allWidgets().size();
    const auto window = showSettings();
    EXPECT_TRUE(window->isVisible());
    EXPECT_GT(QApplication::allWidgets().size(), before);

    window->close();

    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(eventually([&] { return QApplication::allWidgets().size() == before; }));
    EXPECT_EQ(frameOf("Some settings"), std::nullopt);
}

TEST_F(QtProgramWindowTest, AKnobInTheHandStaysThereWhateverTheSettingsSay) {
    pointAt("main");
    const auto window = showSettings();
    QSlider* const slider = sizeSlider();
    ASSERT_NE(slider, nullptr);
    const QPoint middle = slider->mapToGlobal(slider->rect().center());
    const auto pointer = desk().pointer();
    pointer.moveTo({middle.x(), middle.y()});
    pointer.press(desktop::Pointer::Button::primary);
    ASSERT_TRUE(eventually([&] { return slider->isSliderDown(); }));
    const int held = slider->value();
    EXPECT_EQ(held, 16);

    Settings other;
    other.iconSize = 60;
    window->present(SettingsView::form(other, {}, {}));
    EXPECT_EQ(slider->value(), held);

    pointer.moveTo({middle.x() + 40, middle.y()});
    EXPECT_TRUE(eventually([&] { return slider->value() > held; }));
    pointer.release(desktop::Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return !slider->isSliderDown(); }));
    EXPECT_EQ(listener.values.back(), FormValue{32.0 + slider->value()});
}

TEST_F(QtProgramWindowTest, TheWheelScrollsThePageAndMovesNoSlider) {
    pointAt("main");
    const auto window = showSettings();
    QSlider* const slider = sizeSlider();
    ASSERT_NE(slider, nullptr);
    const QPoint before = slider->mapToGlobal(slider->rect().center());
    const auto pointer = desk().pointer();
    pointer.moveTo({before.x(), before.y()});
    pointer.press(desktop::Pointer::Button::wheelDown);
    pointer.release(desktop::Pointer::Button::wheelDown);

    EXPECT_TRUE(
        eventually([&] { return slider->mapToGlobal(slider->rect().center()).y() < before.y(); }));
    EXPECT_TRUE(listener.values.empty());
}

}
}
