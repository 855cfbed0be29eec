#include "Applications/Entries/DesktopEntry.hpp"
#include "Linux/Environment.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace vireline {
namespace {

using xdg::DesktopEntry;

std::optional<DesktopEntry> parse(const std::string& text) {
    return xdg::DesktopEntries::parse(text, "id", "/id.desktop");
}

/// The entry parsed from the text; an empty one if it is invalid.
DesktopEntry entryIn(const std::string& text) {
    return parse(text).value_or(DesktopEntry{});
}

/// Parsed for a user of these languages.
DesktopEntry entryIn(const std::string& text, const char* languages) {
    const test::EnvironmentVariable variable{"LANGUAGE", languages};
    return entryIn(text);
}

constexpr const char* plain = "[Desktop Entry]\nType=Application\nName=Files\nExec=files %U\n";

TEST(DesktopEntry, HasWhatItsFileSays) {
    const auto entry = entryIn("# comment\n\n[Desktop Entry]\nType=Application\nName=Files\n"
                               "Exec=files %U\nTryExec=files\nIcon=folder\nStartupWMClass=Files\n"
                               "Terminal=true\nNoDisplay=true\nDBusActivatable=true\n"
                               "StartupNotify=false\nCategories=System;TerminalEmulator;\n");

    DesktopEntry expected;
    expected.id = "id";
    expected.path = "/id.desktop";
    expected.name = "Files";
    expected.icon = "folder";
    expected.exec = "files %U";
    expected.tryExec = "files";
    expected.startupWMClass = "Files";
    expected.noDisplay = true;
    expected.dBusActivatable = true;
    expected.terminal = true;
    expected.isTerminalEmulator = true;
    expected.startupNotify = false;
    EXPECT_EQ(entry, expected);
}

TEST(DesktopEntry, NameIsInThePreferredLanguage) {
    const std::string text = std::string{plain} + "Name[de]=Dateien\nName[de_AT]=Dateien!\n"
                                                  "Name[fr]=Fichiers\n";

    EXPECT_EQ(entryIn(text, "de_AT:de").name, "Dateien!");
    EXPECT_EQ(entryIn(text, "de_CH:de").name, "Dateien");
    EXPECT_EQ(entryIn(text, "it").name, "Files");
}

TEST(DesktopEntry, AnEmptyTranslationDoesNotHideTheName) {
    EXPECT_EQ(entryIn(std::string{plain} + "Name[de]=\n", "de").name, "Files");
}

TEST(DesktopEntry, ActionsSayNothingAboutIt) {
    const auto entry =
        entryIn(std::string{plain} + "[Desktop Action new]\nName=New Window\nExec=files --new\n");

    EXPECT_EQ(entry.name, "Files");
    EXPECT_EQ(entry.exec, "files %U");
}

using Actions = std::vector<xdg::DesktopEntries::EntryAction>;

TEST(DesktopEntry, ListsItsActionsInThePreferredLanguage) {
    const std::string text =
        std::string{plain} +
        "Actions=new-window;private;missing;nameless;commandless;\n"
        "[Desktop Action private]\nName=Private\nName[de]=Privat\nIcon=mask\nExec=files -p\n"
        "[Desktop Action new-window]\nName=New Window\nName[de]=\nExec=files -n\n"
        "[Desktop Action nameless]\nExec=files\n[Desktop Action commandless]\nName=None\n"
        "[Desktop Action unlisted]\nName=Unlisted\nExec=files\n";
    const test::EnvironmentVariable variable{"LANGUAGE", "de"};

    EXPECT_EQ(xdg::DesktopEntries::actions(text),
              (Actions{{"new-window", "New Window", ""}, {"private", "Privat", "mask"}}));
}

TEST(DesktopEntry, AnActionOfAnAppActivatedOverTheBusNeedsNoCommand) {
    EXPECT_EQ(xdg::DesktopEntries::actions(std::string{plain} +
                                           "DBusActivatable=true\nActions=new\n"
                                           "[Desktop Action new]\nName=New\n"),
              (Actions{{"new", "New", ""}}));
}

TEST(DesktopEntry, HasTwentyActionsAtMostAndNoneIfItIsDamaged) {
    std::string text = std::string{plain} + "Actions=";
    for (int i = 0; i < 30; ++i)
        text += "a" + std::to_string(i) + ";";
    for (int i = 0; i < 30; ++i)
        text += "\n[Desktop Action a" + std::to_string(i) + "]\nName=A\nExec=e\n";

    EXPECT_EQ(xdg::DesktopEntries::actions(text).size(), 20U);
    EXPECT_EQ(xdg::DesktopEntries::actions("nonsense"), Actions{});
    EXPECT_EQ(xdg::DesktopEntries::actions(plain), Actions{});
}

TEST(DesktopEntry, EscapesAreResolved) {
    EXPECT_EQ(entryIn("[Desktop Entry]\nType=Application\nName=A\\sB\\\\C\nExec=e\n").name,
              "A B\\C");
}

TEST(DesktopEntry, MustBeAnApplication) {
    EXPECT_FALSE(parse("[Desktop Entry]\nType=Link\nName=A\nExec=e\n"));
    EXPECT_FALSE(parse("[Desktop Entry]\nName=A\nExec=e\n"));
}

TEST(DesktopEntry, NeedsAName) {
    EXPECT_FALSE(parse("[Desktop Entry]\nType=Application\nExec=e\n"));
    EXPECT_FALSE(parse("[Desktop Entry]\nType=Application\nName= \nExec=e\n"));
}

TEST(DesktopEntry, NeedsExecUnlessDBusActivatesIt) {
    EXPECT_FALSE(parse("[Desktop Entry]\nType=Application\nName=A\n"));
    EXPECT_TRUE(parse("[Desktop Entry]\nType=Application\nName=A\nDBusActivatable=true\n"));
}

TEST(DesktopEntry, HiddenNeedsNothingElse) {
    EXPECT_TRUE(entryIn("[Desktop Entry]\nHidden=true\n").hidden);
}

TEST(DesktopEntry, NeedsItsGroup) {
    EXPECT_FALSE(parse(""));
    EXPECT_FALSE(parse("Type=Application\nName=A\nExec=e\n"));
    EXPECT_FALSE(parse("[Other]\nType=Application\nName=A\nExec=e\n"));
}

TEST(DesktopEntry, LinesMayEndAsOnWindows) {
    EXPECT_EQ(entryIn("[Desktop Entry]\r\nType=Application\r\nName=A\r\nExec=e\r\n").name, "A");
}

TEST(DesktopEntry, NamesOfAnyLengthAreBounded) {
    const std::string name(1'000'000, 'n');

    EXPECT_EQ(entryIn("[Desktop Entry]\nType=Application\nName=" + name + "\nExec=e\n").name.size(),
              256U);
}

TEST(DesktopEntry, AnExecLineLongerThanTheSystemTakesCountsAsNone) {
    const std::string command(200'000, 'e');

    EXPECT_FALSE(parse("[Desktop Entry]\nType=Application\nName=A\nExec=" + command + "\n"));
}

TEST(DesktopEntry, AnyBytesAreMetWithAnEntryOrNone) {
    const std::string whole = std::string{plain} + "Icon=/id.desktop\nName[de]=D\\s\n";
    std::mt19937 random{7};
    for (int i = 0; i < 20'000; ++i) {
        std::string damaged = whole;
        for (int change = 0; change < 3; ++change)
            damaged[random() % damaged.size()] = static_cast<char>(random() % 256);
        const auto entry = parse(damaged.substr(0, random() % (damaged.size() + 1)));
        EXPECT_TRUE(!entry || entry->hidden || !entry->name.empty());
    }
}

TEST(DesktopEntry, IdOfAFileBelowAFolderHasDashesForSlashes) {
    EXPECT_EQ(xdg::DesktopEntries::idFor("kde4/konsole.desktop"), "kde4-konsole");
    EXPECT_EQ(xdg::DesktopEntries::idFor("org.gnome.Nautilus.desktop"), "org.gnome.Nautilus");
}

}
}
