/// The program killed at random moments while a stream of settings is written: the preferences are
/// never lost.
#include "DesktopTest.hpp"
#include "Settings/SettingsCoding.hpp"

#include <algorithm>
#include <csignal>
#include <random>
#include <thread>

namespace vireline::desktop {
namespace {

constexpr int killsPerTest = 40;
constexpr double smallestSize = 32;
constexpr double largestSize = 64;

/// What the key Right, again and again, makes of the icon size.
std::vector<double> sizesInTurn() {
    std::vector<double> sizes;
    for (double size = smallestSize; size <= largestSize; ++size)
        sizes.push_back(size);
    return sizes;
}

class Killed : public DesktopTest, public testing::WithParamInterface<unsigned> {
protected:
    /// Runs the program with its settings open and the slider of the icon size under the keyboard.
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
        // The sources, which have the focus at first, and the positions come before it.
        for (int i = 0; i < 2; ++i)
            desktop().keyboard().type(Keyboard::tab);
        desktop().keyboard().type(Keyboard::home);
        ASSERT_TRUE(eventually([&] {
            const auto saved = SettingsCoding::decode(readFile(desktop().home().preferences()));
            return saved && saved->iconSize == smallestSize;
        }));
    }

    /// The icon size of the dock as the log has it last; a plan is logged after its settings are
    /// saved.
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
    std::uniform_int_distribution<int> microseconds{0, 90'000};
    const auto sizes = sizesInTurn();
    int killedMidway = 0;

    for (int i = 0; i < killsPerTest; ++i) {
        ASSERT_NO_FATAL_FAILURE(runAndFocusSlider());
        const auto keyboard = desktop.keyboard();
        const auto deadline =
            std::chrono::steady_clock::now() + std::chrono::microseconds{microseconds(random)};
        for (int key = 0; key < static_cast<int>(sizes.size()); ++key) {
            if (std::chrono::steady_clock::now() < deadline)
                keyboard.type(Keyboard::right);
        }
        std::this_thread::sleep_until(deadline);
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
        killedMidway += saved->iconSize > smallestSize && saved->iconSize < largestSize ? 1 : 0;
    }
    // Else the keys did not reach the slider, and nothing was put to the test.
    EXPECT_GE(killedMidway, killsPerTest / 2);
}

INSTANTIATE_TEST_SUITE_P(AtRandomMoments, Killed, testing::Range(1U, 6U));

}
}
