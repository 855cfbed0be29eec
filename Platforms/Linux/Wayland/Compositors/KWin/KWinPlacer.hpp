/// Moves windows by scripts that KWin runs.
#pragma once

#include "Compositors/KWin/KWinConnection.hpp"
#include "Compositors/KWin/KWinScripts.hpp"
#include "Compositors/WindowPlacer.hpp"
#include "Foundation/NonCopyable.hpp"

namespace vireline::wayland {

class PlasmaWindowList;

class KWinPlacer final : public WindowPlacer, private NonCopyable {
public:
    /// Windows are those of the list, which must outlive this object.
    KWinPlacer(const PlasmaWindowList& list, const KWinConnection::Connect& connect);

    [[nodiscard]] bool isAvailable() override { return connection_.isAvailable(); }
    /// As KWin last reported it; does not block.
    [[nodiscard]] Result<Rect> frame(xdg::WindowID window, double seconds) override;
    Result<void> move(xdg::WindowID window, Point corner, double seconds) override;
    Result<void> place(xdg::WindowID window, const Rect& frame, double seconds) override;

private:
    [[nodiscard]] Result<KWinWindow> find(xdg::WindowID window) const;

    const PlasmaWindowList& list_;
    KWinConnection connection_;
};

}
