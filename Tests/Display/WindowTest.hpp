/// Runs the platform's displays and dock windows in this process, on a virtual X desktop with three
/// displays, the last of which has two pixels per point. The tests of a process share one desktop;
/// run through ctest, each of eight processes runs an eighth of the tests.
#pragma once

#include "Connection/X11Connection.hpp"
#include "Displays/RandrScreens.hpp"
#include "Panels/QtPanelWindows.hpp"
#include "Toolkit/Appearance.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::test {

/// Records what the window reports, one word per report, with the position where there is one.
class EventLog final : public PanelWindowListener {
public:
    void mouseEntered() override { words.emplace_back("in"); }
    void mouseExited() override { words.emplace_back("out"); }
    void frameDue() override { words.emplace_back("frame"); }
    void pointerEvent(const PointerEvent& event) override;
    void dragEntered(const std::vector<std::string>& urls) override;
    bool dragMoved(Point at) override;
    void dragExited() override { words.emplace_back("drag out"); }
    bool dropped(Point at) override;
    [[nodiscard]] std::vector<AccessibleTile> accessibleTiles() override;
    void pressTile(std::uint32_t id) override { words.push_back("tile " + std::to_string(id)); }
    void showTileMenu(std::uint32_t id) override { words.push_back("menu " + std::to_string(id)); }

    [[nodiscard]] bool has(std::string_view word) const;

    std::vector<std::string> words;
    /// The answer to drags.
    bool takesDrops = true;
    std::vector<AccessibleTile> tiles;
    int tilesAsked = 0;
    /// Called after each pointer event, if set.
    std::function<void()> onPointer;
};

class WindowTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    static desktop::VirtualDesktop& desk();
    static const desktop::XClient& client() { return desk().client(); }
    static std::vector<desktop::Monitor> threeMonitors();

    /// Processes events until `condition` holds; returns false after the desktop's timeout.
    static bool eventually(const std::function<bool()>& condition);
    /// Processes events until everything that has happened so far was handled.
    void settle();

    static std::uint32_t idOf(const std::string& monitor) { return desk().displayIDOf(monitor); }
    /// Fails the test if the display is unknown.
    [[nodiscard]] PlatformScreen screen(const std::string& monitor) const;

    /// A dock of 400 × 84 points, 4 points above the display's bottom edge. It is filled with glass
    /// except for the topmost 26 points, which also let the pointer through.
    std::unique_ptr<PanelWindow> showDock(const std::string& monitor, EventLog& log);
    static Scene dockScene();
    /// The X window of the dock on that display; waits until it is shown.
    static xcb_window_t windowOf(const std::string& monitor);
    /// The screen pixel at a point of that dock's view.
    desktop::PixelPoint pixelAt(const std::string& monitor, Point view) const;

    /// Shows a panel of another program. `strut` contains the twelve numbers of a partial strut, or
    /// nothing.
    static xcb_window_t addPanel(const desktop::PixelRect& frame,
                                 const std::vector<std::uint32_t>& strut);

private:
    /// Resets the desktop to the state in which every test starts.
    [[nodiscard]] static bool prepare();

    bool isPrepared_ = prepare();

protected:
    x11::X11Connection connection;
    x11::RandrScreens screens{connection};
    xdg::Appearance appearance{{}};
    x11::QtPanelWindows panels{connection, screens, appearance};
};

}
