/// Kills the program at random moments during a series of saves: the preferences are never lost.
#include "DesktopTest.hpp"
#include "Settings/SettingsCoding.hpp"

#include <algorithm>
#include <csignal>
#include <optional>
#include <random>
#include <thread>

namespace vireline::desktop {
namespace {

constexpr int killsPerTest = 16;
constexpr double smallestSize = 32;
constexpr double largestSize = 64;

/// The icon sizes that repeatedly pressing the Right key goes through.
std::vector<double> sizesInTurn() {
    std::vector<double> sizes;
    for (double size = smallestSize; size <= largestSize; ++size)
        sizes.push_back(size);
    return sizes;
}

class Killed : public DesktopTest, public testing::WithParamInterface<unsigned> {
protected:
    /// Runs the program with its settings window open and the icon size slider focused.
    void runAndFocusSlider() {
        desktop().home().writePreferences(R"({"onboardingCompleted": true})");
        std::filesystem::remove(desktop().home().log());
        desktop().runVireline();
        const ChildProcess second{
            {testedPrograms().vireline.string(), {}, desktop().environment(), {}, {}, {}}};
        ASSERT_TRUE(eventually([&] {
            const auto& client = desktop().client();
            return client.text(client.focusedWindow(), "_NET_WM_NAME") == "Vireline Settings";
        }));
        // Two controls come before it: the sources, which are focused first, and the positions.
        for (int i = 0; i < 2; ++i)
            desktop().keyboard().type(Keyboard::tab);
        desktop().keyboard().type(Keyboard::home);
        ASSERT_TRUE(eventually([&] { return savedSize() == smallestSize; }));
    }

    /// nullopt if there is no complete record.
    std::optional<double> savedSize() {
        const auto saved = SettingsCoding::decode(readFile(desktop().home().preferences()));
        return saved ? std::optional{saved->iconSize} : std::nullopt;
    }

    /// The dock's icon size according to the latest line in the log; a plan is logged after its
    /// settings were saved.
    [[nodiscard]] double lastPlannedSize() {
        const auto line = desktop().log().last("reframed panel #");
        for (const double size : sizesInTurn()) {
            twoTiles.maxIconSize = size;
            const auto width = static_cast<long>(plannedDock("right", twoTiles).spec.frame.width);
            if (line.contains(", " + std::to_string(width) + ", "))
                return size;
        }
        return smallestSize;
    }

    Request twoTiles = tiles(2);
};

TEST_P(Killed, KeepsOneOfTheLastTwoRecords) {
    auto& desktop = make({.monitors = twoMonitors()});
    const auto apps = someApps(2);
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    std::mt19937 random{GetParam()};
    std::uniform_int_distribution<int> steps{1, static_cast<int>(largestSize - smallestSize) - 1};
    std::uniform_int_distribution<int> microseconds{0, 3'000};
    const auto sizes = sizesInTurn();

    for (int i = 0; i < killsPerTest; ++i) {
        ASSERT_NO_FATAL_FAILURE(runAndFocusSlider());
        // Keys are typed faster than changes are saved, so some are pending when the program is
        // killed.
        const auto keyboard = desktop.keyboard();
        keyboard.type(Keyboard::right);
        ASSERT_TRUE(eventually([&] { return savedSize() > smallestSize; }));
        for (int key = steps(random); key > 0; --key)
            keyboard.type(Keyboard::right);
        std::this_thread::sleep_for(std::chrono::microseconds{microseconds(random)});
        desktop.vireline().signal(SIGKILL);
        ASSERT_TRUE(desktop.vireline().waitForExit());

        const auto text = readFile(desktop.home().preferences());
        const auto saved = SettingsCoding::decode(text);
        ASSERT_TRUE(saved) << text;
        const auto planned = std::ranges::find(sizes, lastPlannedSize());
        const auto next = std::min(planned + 1, sizes.end() - 1);
        EXPECT_TRUE(saved->iconSize == *planned || saved->iconSize == *next)
            << "planned " << *planned << ", saved " << saved->iconSize;
        EXPECT_TRUE(saved->onboardingCompleted);
        EXPECT_GT(saved->iconSize, smallestSize);
    }
}

INSTANTIATE_TEST_SUITE_P(AtRandomMoments, Killed, testing::Range(1U, 6U));

}
}
