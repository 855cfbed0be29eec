/// The whole program on paper in a world where anything may happen at any moment. A step is known
/// by its number: seed and number decide what happens in it, whatever other steps there are, so
/// that a failing course can be cut down step by step.
#pragma once

#include "Cocoa/Paper.hpp"
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

/// Something that can happen.
struct PaperEvent {
    const char* name;
    int weight;
    void (*happen)(PaperWorld& world, test::Random& random);
};

class PaperWorld {
public:
    explicit PaperWorld(unsigned seed);
    PaperWorld(const PaperWorld&) = delete;
    PaperWorld& operator=(const PaperWorld&) = delete;
    PaperWorld(PaperWorld&&) = delete;
    PaperWorld& operator=(PaperWorld&&) = delete;
    ~PaperWorld() = default;

    /// While the program runs: one step, and a look at what must hold at every moment.
    void perform(int step);
    /// Once it has ended.
    void lookForRemains();

    [[nodiscard]] const std::optional<std::string>& failure() const noexcept { return failure_; }
    [[nodiscard]] const std::string& story() const noexcept { return story_; }

    /// Told by who starts the program.
    const WitnessedPanels* panels = nullptr;

    // What follows is for the events.

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

    /// Displays that are attached, the first of them the primary one.
    std::vector<paper::Display> displays;
    /// All that can be installed, pinned and started; process identifiers count from 500.
    std::vector<paper::App> apps;
    /// Pinned in the system's dock, and running: by index.
    std::vector<std::size_t> pins;
    std::set<std::size_t> running;
    bool tapsAreAllowed = true;

    /// Attaches what `displays` says; the first one's corner becomes the origin.
    void plug();
    /// Writes what is pinned; the program hears of it by notification, by its watch on the file, or
    /// by neither.
    void writePins(bool announces, bool replacesFile);
    void quitApp(std::size_t index, bool staysListed);
    /// Ends what the user does, and waits until everything has come to rest.
    void settle();
    /// Something small, for moments in which the program is in the middle of something.
    void interrupt(test::Random& random);

    [[nodiscard]] NSWindow* anyDock(test::Random& random) const;
    [[nodiscard]] std::string pathIn(const std::string& name) const { return home_ + "/" + name; }

private:
    /// Everything as at the start, to count what is alive.
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
    /// By class, when the program was at home the second time.
    std::map<std::string, long> alive_;
    int timesAtHome_ = 0;
    std::size_t descriptors_ = 0;
};

[[nodiscard]] std::vector<PaperEvent> pointerEvents();
[[nodiscard]] std::vector<PaperEvent> surroundingEvents();
[[nodiscard]] std::vector<PaperEvent> windowEvents();

}
