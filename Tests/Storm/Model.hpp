/// The expected state of the program as plain data: what it has read, which docks exist, where they
/// are and which are hidden, and what it must have saved and logged. Each event is applied to the
/// model first and to the program afterwards.
#pragma once

#include "Model/DockItem.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"
#include "Platform/Applications/RunningApplications.hpp"
#include "Platform/PanelWindow.hpp"
#include "Presentation/TileStatus.hpp"
#include "Storm/Formulas.hpp"
#include "Storm/ModelDock.hpp"
#include "Storm/ModelWindow.hpp"
#include "Storm/Surroundings.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vireline::storm {

class Model {
public:
    enum class Guard { off, waiting, active };

    explicit Model(const Surroundings& surroundings) : around_(surroundings) {}

    /// The program starts with the stored settings, or ends.
    void start();
    void quit();
    [[nodiscard]] bool runs() const noexcept { return runs_; }

    /// When the next timer is due; nullopt if there is none.
    [[nodiscard]] std::optional<Time> nextDue() const;
    /// How many timers are due exactly then.
    [[nodiscard]] int duesIn(Time duration) const;
    void pass(Time duration);
    [[nodiscard]] Time now() const noexcept { return now_; }

    /// The settings are changed by the user, or by the program on the user's behalf.
    void write(const Settings& changed);
    void addApp(const FileURL& url);
    void removeApp(const std::string& bundleID);
    void undo();

    /// Notifications from the environment.
    void tapDisabled();
    void desktopsDockAnnounced() { mirrorAt_ = now_ + nanoseconds(0.3); }
    void desktopsDockFileChanged(bool isRemoved);
    void screensAnnounced();
    void willLaunch(const std::string& bundleID) { launching.insert(bundleID); }
    void settled(const std::optional<std::string>& bundleID);
    /// To be called after the announcements have changed.
    void announced();
    void attentionChanged(const AppAttention& attention);
    /// Animations may have been switched on or off.
    void motionChanged();

    /// Other programs' windows.
    void windowOpened(const RunningApplication& app, const std::string& title,
                      test::FakeWindow& actual);
    void windowActivated(ModelWindow& window) { window.lastActive = ++activations_; }
    void windowClosed(int number);

    /// The program has read the running apps or the displays at some time after an interruption.
    void runningAppsRead(const std::vector<RunningApplication>& apps) { showTiles(apps); }
    void screensRead() { reconcile(); }

    /// Call after an interrupted step with the docks that now exist and the number of windows that
    /// each display has had. A dock that the program has kept but the model has not is restored to
    /// its state before the step.
    void recognise(const std::vector<DockID>& ids, const std::map<std::uint32_t, int>& made,
                   const std::map<std::uint32_t, ModelDock>& before);

    /// Events on a dock; ignored if it no longer exists.
    void entered(DockID id);
    void exited(DockID id);
    void pointer(DockID id, const PointerEvent& event, std::optional<std::size_t> tile);
    void filesEntered(DockID id, bool hasFiles);
    void filesLeft(DockID id);
    void dropped(DockID id, const std::vector<FileURL>& files, bool isTaken, bool isForTrash);
    /// It is unknown whether the dock was hidden when the pointer last moved.
    void pointerWasInterrupted(DockID id);
    void menuOpened(DockID id);
    void menuClosed(DockID id);
    void tapped(DockID id, std::size_t tile);
    /// `title` was chosen from that app's menu.
    void chosen(const DockItem& item, std::uint32_t display, const std::string& title);
    /// A window was chosen from that app's menu; it may be closed by now.
    void windowChosen(const DockItem& item, int number);
    /// The dock lays out its tiles, so all earlier changes are now in force.
    void laidOut(DockID id);
    /// Assistive technology reads the tiles; a hidden dock has none to lay out.
    void tilesRead(DockID id);
    /// The icons have changed, so all tiles are created again.
    void iconsChanged();

    [[nodiscard]] ModelDock* find(DockID id);
    [[nodiscard]] bool isManual() const { return settings.sourceMode == SourceMode::manual; }
    [[nodiscard]] TileCounts counts() const;
    [[nodiscard]] double magnification() const;
    /// What assistive technology reads of an app's tile.
    [[nodiscard]] std::string valueOf(const DockItem& item) const;
    /// Whether an app in the docks bobs that began to while animations were on.
    [[nodiscard]] bool bobsVisibly() const;
    /// The windows in that app's menu, most recently active first.
    [[nodiscard]] std::vector<ModelWindow> windowsOf(const DockItem& item) const;
    /// What an app's entry offers.
    [[nodiscard]] std::vector<ApplicationCatalog::Action> actionsOf(const DockItem& item) const;

    /// An edit of the pinned list in a dock.
    struct Edit {
        std::string title;
        std::string bundleID;
        /// Compared and restored only as far as they concern the pinned list.
        Settings before;
        Settings after;
    };

    Settings settings;
    /// What can be undone, oldest first.
    std::vector<Edit> edits;
    std::vector<DockItem> items;
    std::set<std::string> launching;
    /// What apps announce, as far as the program has read it.
    std::map<std::string, TileStatus> statuses;
    /// The apps that want attention.
    std::set<std::string> marked;
    /// All open windows of other programs, oldest first.
    std::vector<ModelWindow> windows;
    std::map<std::uint32_t, ModelDock> docks;
    std::vector<Rect> bands;
    std::vector<Rect> displays;
    Guard guard = Guard::off;
    /// The content of the settings file: the last successful save, unless it was damaged
    /// afterwards.
    std::optional<Settings> saved;
    bool fileIsDamaged = false;
    /// Saves since the last check.
    std::vector<Settings> saves;
    /// Patterns for the log lines since the last check; "*" stands for anything.
    std::vector<std::string> lines;
    int mirrorReads = 0;
    int prompts = 0;
    bool watchesFile = false;
    /// How many timers the program may still have when idle.
    [[nodiscard]] int restingTimers() const;

private:
    [[nodiscard]] std::vector<Time> dues() const;
    [[nodiscard]] double seconds() const { return around_.platform.runLoop.now(); }
    void line(const std::string& pattern) { lines.push_back(pattern); }

    void save();
    void settingsChanged();
    void guardAsSet();
    void startTap();
    void lookEvery(double seconds);
    void lookAtPermission();
    void loseTap();

    void readMirror();
    [[nodiscard]] std::vector<AppRef> mirrored() const;
    [[nodiscard]] std::vector<AppRef> fallback() const;
    [[nodiscard]] std::vector<AppRef> shownManualApps() const;
    void watch();
    void emit();
    void seed();
    void adopt();
    void moveApp(const std::string& bundleID, int place);
    void edited(const std::string& title, const StoredApp& app, const Settings& before);
    void dropEditsUnlessCurrent();
    void showTiles() { showTiles(around_.platform.running.apps); }
    void showTiles(const std::vector<RunningApplication>& apps);

    void reconcile();
    void removeElsewhere();
    void take(ModelDock& dock, const PlannedDock& plan) const;
    [[nodiscard]] ModelDock fresh(const PlannedDock& plan);

    void press(ModelDock& dock, Point at, std::optional<std::size_t> tile);
    void release(ModelDock& dock, Point at, std::optional<std::size_t> tile);
    /// The pointer moved over an open dock.
    void magnify(ModelDock& dock, Point at) const;
    void letGo(ModelDock& dock) const;
    void hideLater(ModelDock& dock) const;
    void click(const DockItem& item, std::uint32_t display);
    [[nodiscard]] std::vector<TileKey> tilesOf(const ModelDock& dock) const;

    void readAnnouncements();
    void lookForAttention();
    [[nodiscard]] bool isPresent(const std::string& app) const;
    void middleClicked(const DockItem& item);

    /// A tile that has just been marked.
    struct Bob {
        Time ends = 0;
        bool isSeen = false;
    };

    const Surroundings& around_;
    bool runs_ = false;
    bool isEditing_ = false;
    Time now_ = 0;
    std::vector<AppRef> pinned_;
    std::vector<AppRef> lastMirror_;
    std::map<std::uint32_t, int> incarnations_;
    int announcements_ = 0;
    /// There is a watch, but no file.
    bool waitsForFile_ = false;
    std::optional<Time> mirrorAt_;
    std::optional<Time> reconcileAt_;
    std::optional<Time> retryWatchAt_;
    std::optional<Time> pollAt_;
    /// When announcements are read next, and when they last were; nullopt before the first time.
    std::optional<Time> readAt_;
    std::optional<Time> lastRead_;
    AppAttention attention_;
    /// The apps that asked for attention when the program last looked.
    std::set<std::string> asked_;
    std::map<std::string, Bob> bobs_;
    int windowsOpened_ = 0;
    int activations_ = 0;
    Time pollEvery_ = 0;
    /// The most recent request for a tap failed.
    bool tapFailed_ = false;
};

}
