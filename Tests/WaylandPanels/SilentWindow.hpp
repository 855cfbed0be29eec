/// Listeners for tests that are not about input.
#pragma once

#include "Input/SurfaceInput.hpp"
#include "Platform/PanelWindow.hpp"

#include <string>
#include <vector>

namespace vireline::wayland {

class SilentWindow final : public PanelWindowListener {
public:
    void mouseEntered() override {}
    void mouseExited() override {}
    void frameDue() override { ++frames; }
    void pointerEvent(const PointerEvent& /*event*/) override {}
    void dragEntered(const std::vector<std::string>& /*urls*/) override {}
    bool dragMoved(Point /*at*/) override { return false; }
    void dragExited() override {}
    bool dropped(Point /*at*/) override { return false; }

    int frames = 0;
};

class NoSurfaceInput final : public SurfaceInput {
public:
    [[nodiscard]] double pixelsPerPoint() const override { return 1; }
    [[nodiscard]] bool followsPointer() const override { return false; }
    void pointerEntered(QPointF /*at*/) override {}
    void pointerMoved(QPointF /*at*/) override {}
    void pointerLeft() override {}
    void buttonPressed(PointerButton /*button*/) override {}
    void buttonReleased(PointerButton /*button*/) override {}
    void dragEntered(const std::vector<std::string>& /*urls*/) override {}
    [[nodiscard]] bool dragMoved(QPointF /*at*/) override { return false; }
    void dragLeft() override {}
    [[nodiscard]] bool dragDropped(QPointF /*at*/) override { return false; }
};

}
