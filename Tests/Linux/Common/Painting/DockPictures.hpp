/// Renders pictures of whole docks without an X server: the kit's scenes, painted as on the screen.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Settings/Settings.hpp"
#include "Support/FakePanelWindows.hpp"

#include <QImage>
#include <memory>
#include <vector>

namespace vireline::test {

/// A dock with three pinned apps, the first of which is running, another running app, Downloads and
/// Trash.
class PicturedDock : private NonCopyable {
public:
    struct Options {
        DockPosition position = DockPosition::bottom;
        double iconSize = 44;
        double magnification = 1.5;
        bool autoHide = false;
    };

    explicit PicturedDock(const Options& options);
    ~PicturedDock();

    /// The first app has a badge, the second one shows progress and a badge, and the last one wants
    /// attention.
    void signal();

    /// Moves the pointer to the middle of a tile.
    void pointAt(std::size_t tile);
    void press();
    /// Moves the pointer by this distance along the dock.
    void moveAlong(double distance);

    /// The content of the dock's window after all animations have finished, on a plain background.
    [[nodiscard]] QImage picture(double scale, bool isDark) const;

private:
    struct Parts;

    [[nodiscard]] FakePanel& window() const;
    [[nodiscard]] const Scene& scene() const;
    void send(PointerEvent::Kind kind);

    std::unique_ptr<Parts> parts_;
};

/// All pictures on one sheet, with `columns` per row.
[[nodiscard]] QImage sheetOf(const std::vector<QImage>& pictures, int columns);

}
