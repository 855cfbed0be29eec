/// The whole program on paper in a world of random events. A step's content depends only on the
/// seed and the step's number, not on other steps, so that a failing sequence can be reduced by
/// removing steps.
#pragma once

#include "Cocoa/Paper.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Layout/PanelPlanner.hpp"
#include "Storm/WitnessedPanels.hpp"
#include "Support/Random.hpp"
#include "Support/TemporaryFolder.hpp"

#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace vireline::storm {

class PaperWorld;

/// A kind of event.
struct PaperEvent {
    const char* name;
    int weight;
    void (*happen)(PaperWorld& world, test::Random& random);
};

class PaperWorld : private NonCopyable {
public:
    explicit PaperWorld(unsigned seed);

    /// Performs one step while the program runs, followed by the checks that must always hold.
    void perform(int step);
    /// Checks after the program has ended.
    void lookForRemains();

    [[nodiscard]] const std::optional<std::string>& failure() const noexcept { return failure_; }
    [[nodiscard]] const std::string& story() const noexcept { return story_; }

    /// Set by the code that starts the program.
    const WitnessedPanels* panels = nullptr;

    // The rest is for the event functions.

    template <class... Pieces>
    void note(const Pieces&... pieces) {
        std::ostringstream text;
        (text << ... << pieces);
        story_ += text.str();
    }
    template <class... Pieces>
    void fail(const Pieces&... pieces) {
        std::ostringstream text;
        (text << ... << pieces);
        if (!failure_)
            failure_ = text.str();
    }

    /// The attached displays, the primary one first.
    std::vector<paper::Display> displays;
    /// All apps that can be installed, pinned and started; process IDs count from 500.
    std::vector<paper::App> apps;
    /// The apps pinned in the system's dock, and the running ones, by index.
    std::vector<std::size_t> pins;
    std::set<std::size_t> running;
    bool tapsAreAllowed = true;

    /// Attaches `displays`; the first one's corner becomes the origin.
    void plug();
    /// Writes the pinned apps; the program is told by a notification, by its watch on the file, or
    /// not at all.
    void writePins(bool announces, bool replacesFile);
    void quitApp(std::size_t index, bool staysListed);
    /// Ends the user's actions and waits until everything is idle.
    void settle();
    /// A small event for moments when the program is in the middle of something.
    void interrupt(test::Random& random);

    [[nodiscard]] NSWindow* anyDock(test::Random& random) const;
    [[nodiscard]] std::string pathIn(const std::string& name) const { return home_ + "/" + name; }

private:
    /// Restores the initial state, in order to count live objects.
    void goHome();
    static void resetSettings();
    void countObjects();
    void lookAtRest();
    [[nodiscard]] std::vector<PanelSpec> plannedDocks();
    void lookAtDock(const PanelSpec& spec, bool isCollapsed);
    void lookAtNodes(const ToldWindow& told, NSWindow* window);
    void lookAtTiles(const ToldWindow& told, NSWindow* window);
    void lookAtGuard();
    void lookAtSettings();

    unsigned seed_;
    test::TemporaryFolder folder_;
    std::string home_ = folder_.path();
    std::string story_;
    std::optional<std::string> failure_;
    bool isInterrupting_ = false;
    /// By class, at the second return to the initial state.
    std::map<std::string, long> alive_;
    int timesAtHome_ = 0;
    std::size_t descriptors_ = 0;
};

[[nodiscard]] std::vector<PaperEvent> pointerEvents();
[[nodiscard]] std::vector<PaperEvent> surroundingEvents();
[[nodiscard]] std::vector<PaperEvent> windowEvents();

}
