/// Draws small rounded rectangles in one colour, including dots, from cached images.
#pragma once

#include <QColor>
#include <QImage>
#include <vector>

namespace vireline::xdg {

class RoundedShapes {
public:
    /// Pixels; the radius is limited to half of the shorter side.
    struct Shape {
        QSize size;
        double radius = 0;
        QColor colour;

        bool operator==(const Shape&) const = default;
    };

    /// The reference is valid until the next call.
    [[nodiscard]] const QImage& picture(const Shape& shape);

private:
    struct Entry {
        Shape shape;
        QImage picture;
    };

    /// A dot, a separator, a handle and a mark, each in the current look and the previous one, and
    /// some progress bars.
    static constexpr std::size_t most = 16;

    std::vector<Entry> entries_;
};

}
