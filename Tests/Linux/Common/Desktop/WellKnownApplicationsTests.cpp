#include "Applications/Entries/WellKnownApplications.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vireline {
namespace {

using IDs = std::vector<std::string>;
namespace WellKnown = xdg::WellKnownApplications;

bool none(const std::string&) {
    return false;
}

TEST(WellKnownApplications, BeginWithTheFileManagerThenTheUsersChoices) {
    const auto ids = WellKnown::choose(
        [](std::string_view type) -> std::string {
            if (type == "inode/directory")
                return "files";
            return type == "x-scheme-handler/https" ? "web" : "";
        },
        [](const std::string& id) { return id == "files" || id == "web" || id == "xterm"; }, none);

    ASSERT_GE(ids.size(), 3U);
    EXPECT_EQ((IDs{ids.begin(), ids.begin() + 3}), (IDs{"files", "web", "xterm"}));
}

TEST(WellKnownApplications, AreTenDifferentOnesWhateverIsInstalled) {
    for (const bool isInstalled : {false, true}) {
        const auto ids = WellKnown::choose([](std::string_view) { return "one-for-all"; },
                                           [=](const std::string&) { return isInstalled; }, none);

        EXPECT_EQ(ids.size(), WellKnown::count);
        EXPECT_EQ((std::set<std::string>{ids.begin(), ids.end()}).size(), WellKnown::count);
    }
}

TEST(WellKnownApplications, AHandlerThatIsNotInstalledGivesWayToACommonOne) {
    const auto ids = WellKnown::choose([](std::string_view) { return "gone"; },
                                       [](const std::string& id) { return id == "pcmanfm"; }, none);

    EXPECT_EQ(ids.front(), "pcmanfm");
    EXPECT_EQ(std::ranges::count(ids, "gone"), 0);
}

TEST(WellKnownApplications, AHandlerThatIsUnfitGivesWayToACommonOneThatIsNot) {
    const auto ids = WellKnown::choose(
        [](std::string_view) { return "helper"; }, [](const std::string&) { return true; },
        [](const std::string& id) { return id == "helper" || id == "firefox"; });

    EXPECT_EQ(ids.front(), "org.gnome.Nautilus");
    EXPECT_EQ(ids.at(1), "firefox-esr");
    EXPECT_EQ(ids.size(), WellKnown::count);
    EXPECT_EQ(std::ranges::count(ids, "helper") + std::ranges::count(ids, "firefox"), 0);
}

TEST(WellKnownApplications, LeaveOutToolsThatOnlyHandleContent) {
    EXPECT_TRUE(WellKnown::isHelper("display-im6.q16"));
    EXPECT_TRUE(WellKnown::isHelper("enlightenment_filemanager"));
    EXPECT_FALSE(WellKnown::isHelper("org.kde.dolphin"));
}

}
}
