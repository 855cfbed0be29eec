/// Checks every text that the kit shows to the user, with this platform's words.
#include "App/AppDelegate.hpp"
#include "Desktop/LinuxWords.hpp"
#include "Interaction/ClickPolicy.hpp"
#include "ProgramWindows/OnboardingView.hpp"
#include "ProgramWindows/SettingsView.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <string>
#include <variant>
#include <vector>

namespace vireline {
namespace {

using Texts = std::vector<std::string>;
using Status = DockAnchorGuard::Status;

void add(Texts& texts, const std::optional<StatusLine>& line) {
    if (line)
        texts.insert(texts.end(), {line->text, line->button});
}

void add(Texts& texts, const FormRow& row) {
    texts.insert(texts.end(), {row.title, row.caption});
    add(texts, row.status);
    if (const auto* const options = std::get_if<RadioGroup>(&row.control))
        texts.insert(texts.end(), options->options.begin(), options->options.end());
    if (const auto* const options = std::get_if<Segments>(&row.control))
        texts.insert(texts.end(), options->options.begin(), options->options.end());
}

void add(Texts& texts, const Form& form) {
    for (const FormSection& section : form.sections) {
        texts.push_back(section.title);
        for (const FormRow& row : section.rows)
            add(texts, row);
    }
}

void add(Texts& texts, const OnboardingPage& page) {
    texts.insert(texts.end(), {page.title, page.text});
    for (const FeatureRow& row : page.rows)
        texts.push_back(row.text);
    for (const OnboardingButton& button : page.buttons)
        texts.push_back(button.title);
    if (!page.permission)
        return;
    add(texts, page.permission->line);
    texts.push_back(page.permission->caption);
    if (page.permission->button)
        texts.push_back(page.permission->button->title);
}

void add(Texts& texts, const Menu& menu) {
    for (const MenuItem& item : menu.entries) {
        if (const auto* const command = std::get_if<MenuCommand>(&item))
            texts.push_back(command->title);
    }
}

/// Every state that the settings window and the tour depend on.
struct Situation {
    Status anchorStatus;
    bool canMoveWindows;
};

std::vector<Situation> situations() {
    std::vector<Situation> all;
    for (const Status status : {Status::off, Status::waitingForPermission, Status::active})
        all.insert(all.end(), {{status, true}, {status, false}});
    return all;
}

Texts settingsTexts(const DesktopWords& words) {
    Texts texts;
    for (const auto& [anchorStatus, canMoveWindows] : situations()) {
        for (const SourceMode source : {SourceMode::mirror, SourceMode::manual}) {
            Settings settings;
            settings.sourceMode = source;
            settings.magnificationEnabled = true;
            settings.anchorAppleDock = true;
            add(texts, SettingsView::form(settings, {false, anchorStatus, canMoveWindows}, words));
        }
    }
    return texts;
}

Texts tourTexts(const DesktopWords& words) {
    Texts texts;
    for (const auto& [anchorStatus, canMoveWindows] : situations()) {
        for (int step = 0; step <= OnboardingView::lastStep; ++step)
            add(texts, OnboardingView::page(step, {anchorStatus, canMoveWindows}, words));
    }
    return texts;
}

Texts menuTexts(const DesktopWords& words) {
    Texts texts;
    for (const bool isRunning : {false, true}) {
        for (const MenuEntry entry : ClickPolicy::menuEntries(isRunning, true))
            texts.push_back(title(entry, words));
    }
    const test::LoggedLines log;
    test::FakePlatform platform;
    platform.words = words;
    AppDelegate delegate{platform.ports()};
    delegate.applicationDidFinishLaunching();
    add(texts, platform.statusBar.openMenu());
    return texts;
}

bool contains(const Texts& texts, const std::string& text) {
    return std::ranges::find(texts, text) != texts.end();
}

/// Lower-case substrings that reveal a macOS term.
constexpr std::array foreign{"macos",    "mac os",        "finder",     "apple",
                             "menu bar", "accessibility", "permission", "grant"};

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

void expectNoForeignWord(const Texts& texts) {
    for (const std::string& text : texts) {
        for (const char* const word : foreign)
            EXPECT_EQ(lowered(text).find(word), std::string::npos) << word << " in: " << text;
    }
}

TEST(LinuxWords, ReplaceEveryWordOfMacOSInTheSettings) {
    const Texts texts = settingsTexts(xdg::linuxWords());
    EXPECT_TRUE(contains(texts, "Mirror the desktop's dock"));
    EXPECT_TRUE(contains(texts, "Active. The desktop's dock stays where it is."));
    expectNoForeignWord(texts);
}

TEST(LinuxWords, ReplaceEveryWordOfMacOSInTheTour) {
    const Texts texts = tourTexts(xdg::linuxWords());
    EXPECT_TRUE(contains(texts, "Every display deserves a dock"));
    EXPECT_TRUE(contains(texts, "Enabled. Enjoy."));
    expectNoForeignWord(texts);
}

TEST(LinuxWords, ReplaceEveryWordOfMacOSInTheMenus) {
    const Texts texts = menuTexts(xdg::linuxWords());
    EXPECT_TRUE(contains(texts, "Show in File Manager"));
    EXPECT_TRUE(contains(texts, "Quit Vireline"));
    expectNoForeignWord(texts);
}

TEST(LinuxWords, LeaveNoBlanksWhereThereIsNothingToSay) {
    const DesktopWords words = xdg::linuxWords();
    for (const Texts& texts : {settingsTexts(words), tourTexts(words), menuTexts(words)}) {
        for (const std::string& text : texts) {
            EXPECT_EQ(text.find("  "), std::string::npos) << text;
            EXPECT_FALSE(text.ends_with(' ')) << text;
        }
    }
}

}
}
