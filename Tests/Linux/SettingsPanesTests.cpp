#include "Desktop/DesktopNames.hpp"
#include "Desktop/SettingsPanes.hpp"
#include "Windows/SystemSettings.hpp"

#include <gtest/gtest.h>

namespace vireline::x11 {
namespace {

using Names = std::vector<std::string>;
using Entries = std::vector<std::string_view>;

TEST(DesktopNames, AreSeparatedByColons) {
    EXPECT_EQ(DesktopNames::parse("ubuntu:GNOME"), (Names{"ubuntu", "GNOME"}));
    EXPECT_EQ(DesktopNames::parse("KDE"), Names{"KDE"});
    EXPECT_EQ(DesktopNames::parse(":XFCE::"), Names{"XFCE"});
    EXPECT_EQ(DesktopNames::parse(""), Names{});
}

TEST(SettingsPanes, AreTheDesktopsOwnAccessibilitySettings) {
    const auto entries = [](const Names& desktop) {
        return SettingsPanes::entries(SystemSettings::accessibilityPane, desktop);
    };
    EXPECT_EQ(entries({"GNOME"}), Entries{"gnome-universal-access-panel"});
    EXPECT_EQ(entries({"KDE"}), Entries{"kcm_access"});
    EXPECT_EQ(entries({"XFCE"}), Entries{"xfce4-accessibility-settings"});
    EXPECT_EQ(entries({"Budgie", "GNOME"}),
              (Entries{"budgie-universal-access-panel", "gnome-universal-access-panel"}));
}

TEST(SettingsPanes, AreMissingOnOtherDesktopsAndForOtherPanes) {
    EXPECT_EQ(SettingsPanes::entries(SystemSettings::accessibilityPane, Names{"i3"}), Entries{});
    EXPECT_EQ(SettingsPanes::entries(SystemSettings::accessibilityPane, Names{}), Entries{});
    EXPECT_EQ(SettingsPanes::entries("x-apple.systempreferences:other", Names{"GNOME"}), Entries{});
}

}
}
