/// Draws small rectangles with round corners in one colour, down to dots, from pictures that it
/// keeps.
#pragma once

#include <QColor>
#include <QImage>
#include <vector>

namespace vireline::x11 {

class RoundedShapes {
public:
    /// Pixels; the radius counts up to half of either side.
    struct Shape {
        QSize size;
        double radius = 0;
        QColor colour;

        bool operator==(const Shape&) const = default;
    };

    /// Valid until the next call.
    [[nodiscard]] const QImage& picture(const Shape& shape);

private:
    struct Entry {
        Shape shape;
        QImage picture;
    };

    /// A dot, a separator and a handle, for one look and the one before.
    static constexpr std::size_t most = 6;

    std::vector<Entry> entries_;
};

}
