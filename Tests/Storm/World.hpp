/// The whole program in a world where anything may happen at any moment, and the model beside it.
/// A step is known by its number: seed and number decide what happens in it, whatever other steps
/// there are, so that a failing course can be cut down step by step.
#pragma once

#include "App/AppDelegate.hpp"
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

/// Something that can happen.
struct Event {
    const char* name;
    int weight;
    void (*happen)(World& world, test::Random& random);
    /// A platform might bring it about from within a call of the program's.
    bool mayComeFromWithin = false;
};

class World final : private WindowWitness {
public:
    explicit World(unsigned seed);
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    World(World&&) = delete;
    World& operator=(World&&) = delete;
    ~World() override;

    /// Does one step and looks at everything afterwards.
    void perform(int step);
    /// Ends the program; nothing of it may be left.
    void end();

    /// What is wrong; the first such thing counts.
    [[nodiscard]] const std::optional<std::string>& failure() const noexcept { return failure_; }
    /// What has happened, a line a step.
    [[nodiscard]] const std::vector<std::string>& story() const noexcept { return story_; }

    // What follows is for the events.

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

    /// Lets time pass, and stops wherever the model has something due.
    void pass(double seconds);
    void showFrames();
    void restart();
    /// Ends all that the user does, waits for everything to end, and looks whether it has.
    void settle();

    [[nodiscard]] const std::vector<StormWindow*>& windows() const noexcept { return windows_; }
    /// A window that is shown; null while there is none.
    [[nodiscard]] StormWindow* anyWindow(test::Random& random) const;
    /// Whether the window is still the one of its dock.
    [[nodiscard]] bool isAlive(const StormWindow* window) const;
    [[nodiscard]] test::FakeForm* form() const;
    [[nodiscard]] test::FakeTour* tour() const;
    /// Whether something has come from within a call in this step.
    [[nodiscard]] bool wasInterrupted() const noexcept { return wasInterrupted_; }
    void cancelPresses();
    /// For a menu that assistive technology asks for.
    void expectMenuOf(std::optional<std::size_t> tile);

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
    void lookAtLog();
    void lookAtDisk();
    void lookAtDocks();
    void lookAtTiles(StormWindow& window, const ModelDock& dock);
    void lookAtPlaces(const StormWindow& window, const ModelDock& dock,
                      const std::vector<AccessibleTile>& tiles);
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
    /// From the end of its launch to the beginning of its end.
    bool runs_ = false;
    std::size_t formsBefore_ = 0;
    std::size_t toursBefore_ = 0;
    std::optional<DockItem> menuItem_;
    std::size_t writesSeen_ = 0;
    int step_ = 0;

    struct Armed {
        const Event* event;
        test::Random random;
        int callsLeft;
        int step;
    };
    std::optional<Armed> armed_;
    /// An event came from within a call in this step: the order of things is not known then, but
    /// what the program has read afterwards is in force.
    bool wasInterrupted_ = false;
    std::optional<std::vector<RunningApplication>> appsRead_;
    /// As they were before the step.
    std::map<std::uint32_t, ModelDock> docksBefore_;
    /// Several things fall due at once: the order that an interruption would depend on is free.
    bool isCrowded_ = false;
    /// Lines of the log before the displays were first read after that; nothing if they were not.
    std::optional<std::size_t> linesWhenScreensWereRead_;
};

/// All that can happen.
[[nodiscard]] std::vector<Event> pointerEvents();
[[nodiscard]] std::vector<Event> surroundingEvents();
[[nodiscard]] std::vector<Event> settingsEvents();
[[nodiscard]] std::vector<Event> timeEvents();

/// What is wrong with a scene whose view draws in that area; nothing if it is sound.
[[nodiscard]] std::optional<std::string> faultOf(const Scene& scene, const Rect& area);

}
