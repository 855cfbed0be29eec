#include "Painting/RoundedShapes.hpp"

#include "Painting/Glass.hpp"

#include <algorithm>

namespace vireline::xdg {
namespace {

QImage render(const RoundedShapes::Shape& shape) {
    QImage picture{shape.size, QImage::Format_ARGB32_Premultiplied};
    picture.fill(Qt::transparent);
    QPainter painter{&picture};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(Glass::roundedPath(picture.rect(), shape.radius), shape.colour);
    return picture;
}

}

const QImage& RoundedShapes::picture(const Shape& shape) {
    const auto known = std::ranges::find(entries_, shape, &Entry::shape);
    if (known != entries_.end())
        return known->picture;
    if (entries_.size() == most)
        entries_.erase(entries_.begin());
    return entries_.emplace_back(shape, render(shape)).picture;
}

}
