/// A dock's window of the storm's platform. Half of them keep track of the pointer as a platform
/// does, the others pass on whatever comes, in any order. All that goes through is shown to a
/// witness first, which may bring about more from within the call.
#pragma once

#include "Model/DockItem.hpp"
#include "Platform/PanelWindow.hpp"
#include "Storm/ModelDock.hpp"
#include "Views/PointerTracker.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline::storm {

class StormWindow;

class WindowWitness {
public:
    virtual ~WindowWitness() = default;

    virtual void windowMade(StormWindow& window) = 0;
    virtual void windowGone(StormWindow& window) = 0;

    /// What the dock is about to be told. A tile is told by its place in the strip.
    virtual void entered(DockID dock) = 0;
    virtual void exited(DockID dock) = 0;
    virtual void pointer(DockID dock, const PointerEvent& event,
                         std::optional<std::size_t> tile) = 0;
    virtual void laidOut(DockID dock) = 0;
    virtual void tilesRead(DockID dock) = 0;

    virtual void menuOpened(StormWindow& window) = 0;
    virtual void menuClosed(StormWindow& window, std::optional<std::size_t> chosen) = 0;
    virtual void presented(const StormWindow& window, const Scene& scene) = 0;
    /// The program has called the platform, which has done what was asked for.
    virtual void called(const char* what) = 0;
    /// The program reads what may have changed since it did so before.
    virtual void screensRead() = 0;
    virtual void runningAppsRead() = 0;
};

class StormWindow final : public PanelWindow, private PanelWindowListener {
public:
    StormWindow(DockID id, PanelWindowListener& listener, WindowWitness& witness, bool isTracked);
    StormWindow(const StormWindow&) = delete;
    StormWindow& operator=(const StormWindow&) = delete;
    StormWindow(StormWindow&&) = delete;
    StormWindow& operator=(StormWindow&&) = delete;
    ~StormWindow() override;

    void setOverhang(const Overhang& overhang) override;
    void setFrame(const Rect& frame, bool animate) override;
    void setHostedFrame(const Rect& frame) override;
    void present(const Scene& scene) override;
    void requestFrame() override;
    void watchForCancel(bool watches) override;
    /// Every release is told of.
    void checkPress() override {}
    void orderFrontRegardless() override;
    void orderOut() override;
    void popUpMenu(const Menu& menu, const MenuPlace& place,
                   std::function<void()> onClose) override;

    /// What the user does; positions in the view's coordinates. The window may be gone afterwards.
    void enter(Point at);
    void leave(bool isHeld, bool isStillOver);
    void move(Point at);
    void press(Point at);
    void release(Point at, bool isOver);
    void pressSecondary(Point at);
    void cancel();
    /// Closes the menu, with or without a choice.
    void closeMenu(std::optional<std::size_t> chosen);
    void showFrame();

    /// The program's side, for what passes through no tracker.
    [[nodiscard]] PanelWindowListener& listener() const noexcept { return listener_; }
    /// The tiles that the program tells of, having laid them out.
    [[nodiscard]] std::vector<AccessibleTile> tiles();
    /// What assistive technology does to a tile, which may be gone.
    void pressByKey(std::uint32_t tile);
    void openMenuByKey(std::uint32_t tile);
    bool dragFiles(Point to);

    const DockID id;
    Rect frame;
    Rect hosted;
    /// That of the frame, and that of frames to come.
    Overhang overhang;
    Overhang nextOverhang;
    Menu menu;
    /// The app that the menu is about; nothing for the program's own.
    std::optional<DockItem> menuItem;
    /// What another program drags over the window.
    std::vector<FileURL> dragged;
    /// A frame was asked for.
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
