#include "Session/AutostartEntry.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vireline::xdg {
namespace {

using Names = std::vector<std::string>;

Names gnome() {
    return {"ubuntu", "GNOME"};
}

Names xfce() {
    return {"XFCE"};
}

/// A valid entry with these additional lines.
std::string entry(const std::string& lines = {}) {
    return "[Desktop Entry]\nType=Application\nName=Mine\nExec=vireline --mine\n" + lines;
}

TEST(AutostartEntry, ANewOneStartsTheProgramOnEveryDesktop) {
    const auto text = AutostartEntry::make("/usr/bin/vireline");

    EXPECT_TRUE(text.starts_with("[Desktop Entry]\nType=Application\nName=Vireline\n")) << text;
    EXPECT_TRUE(text.contains("\nExec=/usr/bin/vireline\n")) << text;
    EXPECT_TRUE(text.contains("\nIcon=vireline\n")) << text;
    for (const Names& desktop : {gnome(), xfce(), Names{}})
        EXPECT_TRUE(AutostartEntry::isEnabled(text, desktop));
}

TEST(AutostartEntry, QuotesAPathThatACommandLineWouldTakeApart) {
    EXPECT_TRUE(
        AutostartEntry::make("/home/a b/vireline").contains("\nExec=\"/home/a b/vireline\"\n"));
    // Escaped twice: as a quoted argument, and then as a value, in which each backslash is doubled.
    EXPECT_TRUE(AutostartEntry::make("/x/100% \"$\\v").contains(R"(Exec="/x/100%% \\"\\$\\\\v")"));
}

TEST(AutostartEntry, KnowsWhatItWroteItselfWhereverTheProgramIs) {
    EXPECT_TRUE(AutostartEntry::isUnedited(AutostartEntry::make("/usr/bin/vireline")));
    EXPECT_TRUE(AutostartEntry::isUnedited(AutostartEntry::make("/home/a b/100%/vireline")));
    EXPECT_FALSE(AutostartEntry::isUnedited(entry()));
    EXPECT_FALSE(
        AutostartEntry::isUnedited(AutostartEntry::make("/usr/bin/vireline") + "# mine\n"));
    EXPECT_FALSE(AutostartEntry::isUnedited(""));
}

TEST(AutostartEntry, IsOnlyValidWithItsGroupTypeAndCommand) {
    EXPECT_TRUE(AutostartEntry::isValid(entry()));
    for (const char* const text :
         {"", "Type=Application\nExec=vireline\n", "[Desktop Entry]\nType=Application\n",
          "[Desktop Entry]\nType=Link\nExec=vireline\n", "[Other]\nType=Application\nExec=v\n",
          "\x01\x02\x03"})
        EXPECT_FALSE(AutostartEntry::isValid(text)) << text;
}

TEST(AutostartEntry, IsSwitchedOffByBeingHidden) {
    EXPECT_FALSE(AutostartEntry::isEnabled(entry("Hidden=true\n"), gnome()));
    EXPECT_TRUE(AutostartEntry::isEnabled(entry("Hidden=false\n"), gnome()));
}

TEST(AutostartEntry, IsSwitchedOffByTheDesktopsOwnSwitch) {
    EXPECT_FALSE(AutostartEntry::isEnabled(entry("X-GNOME-Autostart-enabled=false\n"), xfce()));
    EXPECT_TRUE(AutostartEntry::isEnabled(entry("X-GNOME-Autostart-enabled=true\n"), xfce()));
}

TEST(AutostartEntry, IsMeantForTheDesktopsThatItNames) {
    const auto only = entry("OnlyShowIn=GNOME;KDE;\n");
    EXPECT_TRUE(AutostartEntry::isEnabled(only, gnome()));
    EXPECT_FALSE(AutostartEntry::isEnabled(only, xfce()));
    EXPECT_FALSE(AutostartEntry::isEnabled(only, Names{}));

    const auto except = entry("NotShowIn=XFCE;\n");
    EXPECT_TRUE(AutostartEntry::isEnabled(except, gnome()));
    EXPECT_FALSE(AutostartEntry::isEnabled(except, xfce()));
    EXPECT_TRUE(AutostartEntry::isEnabled(except, Names{}));
}

TEST(AutostartEntry, LetsTheMostParticularNameOfTheDesktopDecide) {
    const auto both = entry("OnlyShowIn=GNOME;\nNotShowIn=ubuntu;\n");
    EXPECT_FALSE(AutostartEntry::isEnabled(both, gnome()));
    EXPECT_TRUE(AutostartEntry::isEnabled(both, Names{"GNOME", "ubuntu"}));
}

TEST(AutostartEntry, SwitchedOnKeepsEverythingElse) {
    const auto before = "# mine\n" + entry("Name[de]=Meins\nHidden=true\n"
                                           "X-GNOME-Autostart-enabled=false\nX-Other=7\n"
                                           "\n[Desktop Action Go]\nExec=other\n");

    const auto after = AutostartEntry::enabled(before, gnome());

    ASSERT_TRUE(after);
    EXPECT_TRUE(AutostartEntry::isEnabled(*after, gnome())) << *after;
    for (const char* const kept : {"# mine", "Name[de]=Meins", "Exec=vireline --mine", "X-Other=7",
                                   "[Desktop Action Go]", "Exec=other"})
        EXPECT_TRUE(after->contains(kept)) << kept << " in\n" << *after;
}

TEST(AutostartEntry, SwitchedOnLetsThisDesktopIn) {
    for (const char* const lines : {"OnlyShowIn=KDE;\n", "NotShowIn=XFCE;LXQt;\n",
                                    "OnlyShowIn=KDE;\nNotShowIn=XFCE;\n", "OnlyShowIn=\n"}) {
        const auto after = AutostartEntry::enabled(entry(lines), xfce());
        ASSERT_TRUE(after);
        EXPECT_TRUE(AutostartEntry::isEnabled(*after, xfce())) << *after;
    }
    // Other desktops are left unchanged.
    const auto others = AutostartEntry::enabled(entry("NotShowIn=XFCE;LXQt;\n"), xfce());
    EXPECT_FALSE(AutostartEntry::isEnabled(*others, Names{"LXQt"}));
    const auto nameless = AutostartEntry::enabled(entry("OnlyShowIn=KDE;\n"), Names{});
    EXPECT_TRUE(AutostartEntry::isEnabled(*nameless, Names{}));
}

TEST(AutostartEntry, SwitchedOnFindsEveryRepetitionOfWhatKeepsItOff) {
    const auto text = entry("Hidden=true\nNotShowIn=GNOME;\nHidden=true\nNotShowIn=GNOME;KDE;\n");

    const auto switchedOn = AutostartEntry::enabled(text, gnome());

    ASSERT_TRUE(switchedOn);
    EXPECT_TRUE(AutostartEntry::isEnabled(*switchedOn, gnome()));
}

TEST(AutostartEntry, IsNotSwitchedOnWhenItRepeatsItselfWithoutEnd) {
    std::string lines;
    for (int i = 0; i < 10'000; ++i)
        lines += "Hidden=true\n";

    EXPECT_FALSE(AutostartEntry::enabled(entry(lines), gnome()));
}

TEST(AutostartEntry, SwitchedOnLeavesOneAloneThatAlreadyIs) {
    EXPECT_EQ(AutostartEntry::enabled(entry("OnlyShowIn=GNOME;\n"), gnome()),
              entry("OnlyShowIn=GNOME;\n"));
}

TEST(AutostartEntry, NeedsItsProgramAndTheOneThatItAsksFor) {
    EXPECT_EQ(AutostartEntry::neededPrograms(entry()), Names{"vireline"});
    EXPECT_EQ(AutostartEntry::neededPrograms(entry("TryExec=/opt/v\n")),
              (Names{"vireline", "/opt/v"}));
    EXPECT_EQ(AutostartEntry::neededPrograms(AutostartEntry::make("/home/a b/100%/vireline")),
              Names{"/home/a b/100%/vireline"});
    EXPECT_EQ(AutostartEntry::neededPrograms("rubbish"), Names{});
}

TEST(AutostartEntry, StartsTheProgramFromItsNewPlaceWithTheSameArguments) {
    for (const auto& [before, after] : std::vector<std::pair<std::string, std::string>>{
             {"vireline --mine", "/new/vireline --mine"},
             {"/old/vireline", "/new/vireline"},
             {R"("/old place/vireline" --mine "two words")", R"(/new/vireline --mine "two words")"},
             {"/old/another --theirs", "/new/vireline"}}) {
        const std::string group = "[Desktop Entry]\nType=Application\nExec=";
        EXPECT_EQ(AutostartEntry::withProgram(group + before + "\nX-Other=7\n", "/new/vireline"),
                  group + after + "\nX-Other=7\n");
    }
    const auto tried = AutostartEntry::withProgram(entry("TryExec=/old/vireline\n"), "/new/v");
    EXPECT_TRUE(tried && tried->contains("\nTryExec=/new/v\n"));
    EXPECT_FALSE(AutostartEntry::withProgram("rubbish", "/new/vireline"));
}

TEST(AutostartEntry, HiddenKeepsEverythingElse) {
    const auto after = AutostartEntry::hidden(entry("X-Other=7\n"));

    ASSERT_TRUE(after);
    EXPECT_FALSE(AutostartEntry::isEnabled(*after, gnome()));
    EXPECT_TRUE(after->contains("X-Other=7"));
    EXPECT_TRUE(AutostartEntry::isEnabled(*AutostartEntry::enabled(*after, gnome()), gnome()));
}

TEST(AutostartEntry, IsNotMadeFromInvalidText) {
    EXPECT_EQ(AutostartEntry::enabled("something else", gnome()), std::nullopt);
    EXPECT_EQ(AutostartEntry::hidden("something else"), std::nullopt);
}

}
}
