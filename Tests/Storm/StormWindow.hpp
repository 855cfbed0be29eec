/// A dock's window for storms. Half of them track the pointer like a real platform, the others pass
/// on random events in any order. A witness is called first for everything, and may cause further
/// events from within the call.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Model/DockItem.hpp"
#include "Platform/PanelWindow.hpp"
#include "Storm/ModelDock.hpp"
#include "Views/Input/PointerTracker.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline::storm {

class StormWindow;

/// A line of a menu, or of a submenu, whose lines follow its title.
struct MenuLine {
    /// "-" for a separator; with an asterisk behind that of a checked command.
    std::string title;
    bool isCommand = false;
    MenuAction action;
};

[[nodiscard]] std::vector<MenuLine> linesOf(const Menu& menu);

class WindowWitness {
public:
    virtual ~WindowWitness() = default;

    virtual void windowMade(StormWindow& window) = 0;
    virtual void windowGone(StormWindow& window) = 0;

    /// Called before the dock is told. A tile is identified by its index in the strip.
    virtual void entered(DockID dock) = 0;
    virtual void exited(DockID dock) = 0;
    virtual void pointer(DockID dock, const PointerEvent& event,
                         std::optional<std::size_t> tile) = 0;
    virtual void laidOut(DockID dock) = 0;
    virtual void tilesRead(DockID dock) = 0;

    virtual void menuOpened(StormWindow& window) = 0;
    virtual void menuClosed(StormWindow& window, std::optional<std::size_t> chosen) = 0;
    virtual void presented(const StormWindow& window, const Scene& scene) = 0;
    /// The program has called the platform, which has done what was requested.
    virtual void called(const char* what) = 0;
    /// The program is reading something that may have changed since it last did.
    virtual void screensRead() = 0;
    virtual void runningAppsRead() = 0;
};

class StormWindow final : public PanelWindow, private PanelWindowListener, private NonCopyable {
public:
    StormWindow(DockID id, PanelWindowListener& listener, WindowWitness& witness, bool isTracked);
    ~StormWindow() override;

    void setOverhang(const Overhang& overhang) override;
    void setFrame(const Rect& frame, bool animate) override;
    void setHostedFrame(const Rect& frame) override;
    void present(const Scene& scene) override;
    void requestFrame() override;
    void watchForCancel(bool watches) override;
    /// Does nothing, because every release is reported.
    void checkPress() override {}
    void orderFrontRegardless() override;
    void orderOut() override;
    void popUpMenu(const Menu& menu, const MenuPlace& place,
                   std::function<void()> onClose) override;

    /// The user's actions; positions are in the view's coordinates. The window may be destroyed
    /// afterwards.
    void enter(Point at);
    void leave(bool isHeld, bool isStillOver);
    void move(Point at);
    void press(Point at);
    void release(Point at, bool isOver);
    void pressSecondary(Point at);
    void pressMiddle(Point at);
    void cancel();
    /// Closes the menu, with or without a choice of one of its `linesOf`.
    void closeMenu(std::optional<std::size_t> chosen);
    void showFrame();

    /// The program's listener, for events that bypass the tracker.
    [[nodiscard]] PanelWindowListener& listener() const noexcept { return listener_; }
    /// The tiles that the program reports, which lays them out.
    [[nodiscard]] std::vector<AccessibleTile> tiles();
    /// Actions of assistive technology on a tile, which may no longer exist.
    void pressByKey(std::uint32_t tile);
    void openMenuByKey(std::uint32_t tile);
    bool dragFiles(Point to);

    const DockID id;
    Rect frame;
    Rect hosted;
    /// The overhang of the current frame, and that of future frames.
    Overhang overhang;
    Overhang nextOverhang;
    Menu menu;
    /// The app that the menu belongs to; nullopt for the program's own menu.
    std::optional<DockItem> menuItem;
    /// The numbers of the windows that the menu lists, from the top.
    std::vector<int> menuWindows;
    /// What it shows.
    Scene scene;
    /// The files that another program is dragging over the window.
    std::vector<FileURL> dragged;
    /// A frame was requested.
    bool awaitsFrame = false;
    bool isShown = false;
    bool hasMenu = false;
    bool watchesForCancel = false;

private:
    void mouseEntered() override;
    void mouseExited() override;
    void frameDue() override { listener_.frameDue(); }
    void pointerEvent(const PointerEvent& event) override;
    void dragEntered(const std::vector<std::string>& urls) override { listener_.dragEntered(urls); }
    bool dragMoved(Point at) override { return dragFiles(at); }
    void dragExited() override { listener_.dragExited(); }
    bool dropped(Point at) override { return listener_.dropped(at); }

    [[nodiscard]] std::optional<std::size_t> tileAt(Point at);

    PanelWindowListener& listener_;
    WindowWitness& witness_;
    bool isTracked_;
    PointerTracker tracker_{*this};
    std::function<void()> onMenuClosed_;
};

}
