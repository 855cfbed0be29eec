/// The program as it should be, in plain data: what it has read, which docks stand where and which
/// of them are hidden, what it must have saved and logged. Every event that the world brings about
/// reaches the model first and the program then.
#pragma once

#include "Model/DockItem.hpp"
#include "Platform/PanelWindow.hpp"
#include "Storm/Formulas.hpp"
#include "Storm/ModelDock.hpp"
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

    /// The program starts with what is on the disk, and ends.
    void start();
    void quit();
    [[nodiscard]] bool runs() const noexcept { return runs_; }

    /// When something falls due next; nothing while only the user can change anything.
    [[nodiscard]] std::optional<Time> nextDue() const;
    /// How many things fall due exactly then.
    [[nodiscard]] int duesIn(Time duration) const;
    void pass(Time duration);
    [[nodiscard]] Time now() const noexcept { return now_; }

    /// The user, or the program in the user's name, changes the settings.
    void write(const Settings& changed);
    void addApp(const FileURL& url);
    void removeApp(const std::string& bundleID);

    /// What the surroundings tell the program of themselves.
    void tapDisabled();
    void desktopsDockAnnounced() { mirrorAt_ = now_ + nanoseconds(0.3); }
    void desktopsDockFileChanged(bool isRemoved);
    void screensAnnounced();
    void willLaunch(const std::string& bundleID) { launching.insert(bundleID); }
    void settled(const std::optional<std::string>& bundleID);

    /// The program has read the running apps or the displays at a time of its own.
    void runningAppsRead(const std::vector<RunningApplication>& apps) { showTiles(apps); }
    void screensRead() { reconcile(); }

    /// These docks are there after a step that was interrupted, of so many that each display has
    /// had. One that the program kept, and the model did not, is as it was before the step.
    void recognise(const std::vector<DockID>& ids, const std::map<std::uint32_t, int>& made,
                   const std::map<std::uint32_t, ModelDock>& before);

    /// What happens to a dock; one that is gone takes no notice.
    void entered(DockID id);
    void exited(DockID id);
    void pointer(DockID id, const PointerEvent& event, std::optional<std::size_t> tile);
    void filesEntered(DockID id, bool hasFiles);
    void filesLeft(DockID id);
    void dropped(DockID id, const std::vector<FileURL>& files, bool isTaken, bool isForTrash);
    void menuOpened(DockID id);
    void menuClosed(DockID id);
    void tapped(DockID id, std::size_t tile);
    /// `title` was chosen from the menu of that app.
    void chosen(const DockItem& item, std::uint32_t display, const std::string& title);
    /// The dock lays its tiles out: whatever changed before is in force.
    void laidOut(DockID id);
    /// Assistive technology asks for its tiles, of which a hidden dock has none to lay out.
    void tilesRead(DockID id);
    /// Icons look different from now on: all tiles are made again.
    void iconsChanged();

    [[nodiscard]] ModelDock* find(DockID id);
    [[nodiscard]] bool isManual() const { return settings.sourceMode == SourceMode::manual; }
    [[nodiscard]] TileCounts counts() const;
    [[nodiscard]] double magnification() const;

    Settings settings;
    std::vector<DockItem> items;
    std::set<std::string> launching;
    std::map<std::uint32_t, ModelDock> docks;
    std::vector<Rect> bands;
    std::vector<Rect> displays;
    Guard guard = Guard::off;
    /// What the settings' file holds: the last save that succeeded, unless somebody damaged it.
    std::optional<Settings> saved;
    bool fileIsDamaged = false;
    /// Saves since the last look.
    std::vector<Settings> saves;
    /// Patterns of the log's lines since the last look; "*" stands for anything.
    std::vector<std::string> lines;
    int mirrorReads = 0;
    int prompts = 0;
    bool watchesFile = false;
    /// Timers that a program at rest may still have.
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
    void showTiles() { showTiles(around_.platform.running.apps); }
    void showTiles(const std::vector<RunningApplication>& apps);

    void reconcile();
    void removeElsewhere();
    void take(ModelDock& dock, const PlannedDock& plan) const;
    [[nodiscard]] ModelDock fresh(const PlannedDock& plan);

    void press(ModelDock& dock, Point at, std::optional<std::size_t> tile);
    void release(ModelDock& dock, Point at, std::optional<std::size_t> tile);
    void letGo(ModelDock& dock) const;
    void hideLater(ModelDock& dock) const;
    void click(const DockItem& item, std::uint32_t display);
    [[nodiscard]] std::vector<TileKey> tilesOf(const ModelDock& dock) const;

    const Surroundings& around_;
    bool runs_ = false;
    Time now_ = 0;
    std::vector<AppRef> pinned_;
    std::vector<AppRef> lastMirror_;
    std::map<std::uint32_t, int> incarnations_;
    int announcements_ = 0;
    /// The watch is there, the file is not.
    bool waitsForFile_ = false;
    std::optional<Time> mirrorAt_;
    std::optional<Time> reconcileAt_;
    std::optional<Time> retryWatchAt_;
    std::optional<Time> pollAt_;
    Time pollEvery_ = 0;
    /// The last tap that was asked for was refused.
    bool tapFailed_ = false;
};

}
