/// What happens to a surface of ours. Positions are in the surface's logical pixels.
#pragma once

#include <QPointF>
#include <cstdint>
#include <string>
#include <vector>

namespace vireline::wayland {

enum class PointerButton : std::uint8_t { left, right, middle };

class SurfaceInput {
public:
    virtual ~SurfaceInput() = default;

    /// Pixels per point, for the pointer's image.
    [[nodiscard]] virtual double pixelsPerPoint() const = 0;

    /// Whether what the surface shows moves along with the pointer. If not, movements may come
    /// later.
    [[nodiscard]] virtual bool followsPointer() const = 0;

    virtual void pointerEntered(QPointF at) = 0;
    virtual void pointerMoved(QPointF at) = 0;
    /// Not called while a button is held that was pressed on this surface.
    virtual void pointerLeft() = 0;
    virtual void buttonPressed(PointerButton button) = 0;
    virtual void buttonReleased(PointerButton button) = 0;

    /// A drag from another program, once its files are known. `dragMoved` returns whether they can
    /// be dropped there.
    virtual void dragEntered(const std::vector<std::string>& urls) = 0;
    [[nodiscard]] virtual bool dragMoved(QPointF at) = 0;
    virtual void dragLeft() = 0;
    /// Returns whether the files were accepted.
    [[nodiscard]] virtual bool dragDropped(QPointF at) = 0;
};

}
