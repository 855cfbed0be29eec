#include "Applications/Entries/WellKnownApplications.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vireline {
namespace {

using IDs = std::vector<std::string>;
namespace WellKnown = x11::WellKnownApplications;

TEST(WellKnownApplications, BeginWithTheFileManagerThenTheUsersChoices) {
    const auto ids = WellKnown::choose(
        [](std::string_view type) -> std::string {
            if (type == "inode/directory")
                return "files";
            return type == "x-scheme-handler/https" ? "web" : "";
        },
        [](const std::string& id) { return id == "files" || id == "web" || id == "xterm"; });

    ASSERT_GE(ids.size(), 3U);
    EXPECT_EQ((IDs{ids.begin(), ids.begin() + 3}), (IDs{"files", "web", "xterm"}));
}

TEST(WellKnownApplications, AreTenDifferentOnesWhateverIsInstalled) {
    for (const bool isInstalled : {false, true}) {
        const auto ids = WellKnown::choose([](std::string_view) { return "one-for-all"; },
                                           [=](const std::string&) { return isInstalled; });

        EXPECT_EQ(ids.size(), WellKnown::count);
        EXPECT_EQ((std::set<std::string>{ids.begin(), ids.end()}).size(), WellKnown::count);
    }
}

TEST(WellKnownApplications, AHandlerThatIsNotInstalledGivesWayToACommonOne) {
    const auto ids = WellKnown::choose([](std::string_view) { return "gone"; },
                                       [](const std::string& id) { return id == "pcmanfm"; });

    EXPECT_EQ(ids.front(), "pcmanfm");
    EXPECT_EQ(std::ranges::count(ids, "gone"), 0);
}

}
}
