/// The whole program in a world of random events, together with the model. A step's content depends
/// only on the seed and the step's number, not on other steps, so that a failing sequence can be
/// reduced by removing steps.
#pragma once

#include "App/AppDelegate.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Storm/Model.hpp"
#include "Storm/StormPorts.hpp"
#include "Storm/Surroundings.hpp"
#include "Support/Random.hpp"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace vireline::storm {

class World;

/// A kind of event.
struct Event {
    const char* name;
    int weight;
    void (*happen)(World& world, test::Random& random);
    /// A platform might cause it from within one of the program's calls.
    bool mayComeFromWithin = false;
};

class World final : private WindowWitness, private NonCopyable {
public:
    explicit World(unsigned seed);
    ~World() override;

    /// Performs one step and then checks everything.
    void perform(int step);
    /// Ends the program; checks that nothing of it is left.
    void end();

    /// The first problem found, if any.
    [[nodiscard]] const std::optional<std::string>& failure() const noexcept { return failure_; }
    /// What has happened, one line per step.
    [[nodiscard]] const std::vector<std::string>& story() const noexcept { return story_; }

    // The rest is for the event functions.

    Surroundings around;
    Model model{around};

    template <class... Pieces>
    void note(const Pieces&... pieces) {
        std::ostringstream text;
        (text << ... << pieces);
        story_.back() += text.str();
    }
    template <class... Pieces>
    void fail(const Pieces&... pieces) {
        std::ostringstream text;
        (text << ... << pieces);
        if (!failure_)
            failure_ = text.str();
    }

    /// Advances time, stopping wherever the model has something due.
    void pass(double seconds);
    void showFrames();
    void restart();
    /// Ends all user actions, waits until everything is idle, and checks that it is.
    void settle();

    [[nodiscard]] const std::vector<StormWindow*>& windows() const noexcept { return windows_; }
    /// A visible window; null if there is none.
    [[nodiscard]] StormWindow* anyWindow(test::Random& random) const;
    /// Whether the window still exists and belongs to its dock.
    [[nodiscard]] bool isAlive(const StormWindow* window) const;
    [[nodiscard]] test::FakeForm* form() const;
    [[nodiscard]] test::FakeTour* tour() const;
    /// Whether an event has come from within a call in this step.
    [[nodiscard]] bool wasInterrupted() const noexcept { return wasInterrupted_; }
    void cancelPresses();
    /// For a menu that assistive technology requests.
    void expectMenuOf(std::optional<std::size_t> tile);
    void demandAttention(const AppAttention& attention);
    /// Closes a window of another program, for the model and for the program.
    void closeWindow(const ModelWindow& window);
    void closeWindowsOfEndedApps();

private:
    void windowMade(StormWindow& window) override { windows_.push_back(&window); }
    void windowGone(StormWindow& window) override { std::erase(windows_, &window); }
    void entered(DockID dock) override { model.entered(dock); }
    void exited(DockID dock) override { model.exited(dock); }
    void pointer(DockID dock, const PointerEvent& event, std::optional<std::size_t> tile) override;
    void laidOut(DockID dock) override { model.laidOut(dock); }
    void tilesRead(DockID dock) override { model.tilesRead(dock); }
    void menuOpened(StormWindow& window) override;
    void menuClosed(StormWindow& window, std::optional<std::size_t> chosen) override;
    void presented(const StormWindow& window, const Scene& scene) override;
    void called(const char* what) override;
    void screensRead() override;
    void runningAppsRead() override;

    void start();
    void look();
    void catchUp();
    void renewTiles();
    void endAttention();
    void lookAtLog();
    void lookAtDisk();
    void lookAtDocks();
    void lookAtTiles(StormWindow& window, const ModelDock& dock);
    void lookAtPlaces(const StormWindow& window, const ModelDock& dock,
                      const std::vector<AccessibleTile>& tiles);
    [[nodiscard]] std::vector<TileExtent> expectedPlaces(const StormWindow& window,
                                                         const ModelDock& dock) const;
    void lookAtSignals(StormWindow& window, const ModelDock& dock);
    void lookAtLineMarks(const StormWindow& window, const ModelDock& dock);
    void lookAtGuard();
    void lookAtForm();
    void lookForRemains();
    void lookAtRest();

    unsigned seed_;
    /// The platform may call back from within calls.
    bool callsBack_;
    std::vector<std::string> story_{""};
    std::optional<std::string> failure_;
    std::vector<StormWindow*> windows_;
    StormPorts ports_;
    std::unique_ptr<AppDelegate> delegate_;
    /// From the end of the launch until the program begins to quit.
    bool runs_ = false;
    std::size_t formsBefore_ = 0;
    std::size_t toursBefore_ = 0;
    /// What the next menu should have.
    std::optional<DockItem> menuItem_;
    std::vector<int> menuWindows_;
    std::vector<std::string> menuTitles_;
    std::size_t writesSeen_ = 0;
    int step_ = 0;

    struct Armed {
        const Event* event;
        test::Random random;
        int callsLeft;
        int step;
    };
    std::optional<Armed> armed_;
    /// An event has come from within a call in this step. The order of events is then unknown, but
    /// what the program has read since is in force.
    bool wasInterrupted_ = false;
    std::optional<std::vector<RunningApplication>> appsRead_;
    /// The docks before the step.
    std::map<std::uint32_t, ModelDock> docksBefore_;
    /// Several timers are due at the same time, so the order relative to an interruption is
    /// undefined.
    bool isCrowded_ = false;
    /// Length of the log when the displays were first read after the interruption; nullopt if they
    /// were not.
    std::optional<std::size_t> linesWhenScreensWereRead_;
};

/// All possible events.
[[nodiscard]] std::vector<Event> pointerEvents();
[[nodiscard]] std::vector<Event> surroundingEvents();
[[nodiscard]] std::vector<Event> signalEvents();
[[nodiscard]] std::vector<Event> windowEvents();
[[nodiscard]] std::vector<Event> settingsEvents();
[[nodiscard]] std::vector<Event> timeEvents();

/// What is wrong with a scene; nullopt if nothing is.
[[nodiscard]] std::optional<std::string> faultOf(const Scene& scene);

}
