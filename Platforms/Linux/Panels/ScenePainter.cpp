#include "Panels/ScenePainter.hpp"

#include "Icons/RasterImage.hpp"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QString>
#include <algorithm>
#include <cmath>

namespace vireline::x11::ScenePainter {
namespace {

QPainterPath roundedPath(const QRectF& rect, double radius) {
    const double most = std::min(rect.width(), rect.height()) / 2;
    const double r = std::clamp(radius, 0.0, most);
    QPainterPath path;
    path.addRoundedRect(rect, r, r);
    return path;
}

/// How thick a fine line is: one pixel on ordinary screens and on those of double density.
double hairline(double scale) {
    return std::max(1.0, std::floor(scale / 2));
}

/// A line of whole pixels along the inside of the rectangle, `inset` pixels from its edge.
void drawRing(QPainter& painter, const QRectF& rect, double radius, double inset, double width,
              const QBrush& brush) {
    const double middle = inset + width / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen{brush, width});
    painter.drawPath(roundedPath(rect.adjusted(middle, middle, -middle, -middle), radius - middle));
}

QLinearGradient downwards(const QRectF& rect, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient{rect.topLeft(), rect.bottomLeft()};
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

struct Label {
    QRectF capsule;
    QString text;
    QFont font;
};

Label layOut(const LabelNode& node, const QRectF& room, double scale) {
    Label label;
    label.font = QGuiApplication::font();
    label.font.setWeight(QFont::Medium);
    label.font.setPixelSize(std::max(1, static_cast<int>(std::lround(node.fontSize * scale))));
    const QFontMetricsF metrics{label.font};
    const QSizeF padding{node.padding.width * scale, node.padding.height * scale};
    const double widest = std::max(0.0, room.width() - 2 * padding.width());
    label.text =
        metrics.elidedText(QString::fromStdString(node.text).simplified(), Qt::ElideRight, widest);
    const double width =
        std::min(room.width(), metrics.horizontalAdvance(label.text) + 2 * padding.width());
    const double height = std::min(room.height(), metrics.height() + 2 * padding.height());
    label.capsule = ViewMappings::snappedAsWhole(
        {room.center().x() - width / 2, room.center().y() - height / 2, width, height});
    return label;
}

constexpr double sideTolerance = 1.0 / 64;

bool isSameSide(double a, double b) {
    return std::abs(a - b) < sideTolerance;
}

/// The side of an icon that has not grown, in points: the smallest there is, unless it is the only
/// one of its size among others, all of which have then grown.
double restingSide(const Scene& scene) {
    double smallest = 0;
    int count = 0;
    int images = 0;
    for (const SceneNode& node : scene.nodes) {
        if (!std::holds_alternative<ImageNode>(node.content))
            continue;
        ++images;
        const double side = node.frame.width;
        if (count == 0 || side < smallest - sideTolerance) {
            smallest = side;
            count = 1;
        } else if (isSameSide(side, smallest)) {
            ++count;
        }
    }
    return count > 1 || images == 1 ? smallest : 0;
}

class NodePainter {
public:
    NodePainter(QPainter& painter, const ViewMapping& mapping, const DockColors& colors,
                double restingSide)
        : painter_(painter), mapping_(mapping), colors_(colors), restingSide_(restingSide) {}

    void paint(const SceneNode& node) const {
        painter_.setOpacity(std::clamp(node.opacity, 0.0, 1.0));
        const QRectF rect = ViewMappings::drawnRect(node, mapping_);
        std::visit([&](const auto& content) { draw(content, rect, node.scale); }, node.content);
    }

private:
    void draw(const GlassNode& glass, const QRectF& rect, double nodeScale) const {
        drawGlass(ViewMappings::snapped(rect), glass.cornerRadius * mapping_.scale * nodeScale,
                  colors_.glassTop, colors_.glassBottom);
    }

    /// Icons at rest are drawn one to one on whole pixels; those that have grown or shrunk lie
    /// between pixels, so as to move smoothly, and are drawn from a larger picture.
    void draw(const ImageNode& node, const QRectF& rect, double /*nodeScale*/) const {
        const auto* const image = dynamic_cast<const RasterImage*>(node.image.get());
        if (image == nullptr || rect.width() < 1 || rect.height() < 1)
            return;
        const double side = std::max(rect.width(), rect.height());
        if (isSameSide(side, restingSide_ * mapping_.scale)) {
            const QRect whole = ViewMappings::snappedAsWhole(rect);
            painter_.drawImage(whole.topLeft(), image->exact(whole.width()));
            return;
        }
        const QImage picture = image->forScaling(side);
        painter_.drawImage(rect, picture, QRectF{picture.rect()});
    }

    void draw(const DotNode& /*dot*/, const QRectF& rect, double /*nodeScale*/) const {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(colors_.dot);
        painter_.drawEllipse(QRectF{ViewMappings::snappedAsWhole(rect)});
    }

    void draw(const SeparatorNode& separator, const QRectF& rect, double nodeScale) const {
        const QRectF line{ViewMappings::snappedAsWhole(rect)};
        painter_.fillPath(roundedPath(line, separator.cornerRadius * mapping_.scale * nodeScale),
                          colors_.separator);
    }

    void draw(const LabelNode& node, const QRectF& rect, double nodeScale) const {
        const Label label = layOut(node, rect, mapping_.scale * nodeScale);
        drawGlass(label.capsule, label.capsule.height() / 2, colors_.labelGlass,
                  colors_.labelGlass);
        painter_.setFont(label.font);
        painter_.setPen(colors_.text);
        painter_.drawText(label.capsule, Qt::AlignCenter | Qt::TextSingleLine, label.text);
    }

    void draw(const HandleNode& /*handle*/, const QRectF& rect, double /*nodeScale*/) const {
        const QRectF bar{ViewMappings::snapped(rect)};
        painter_.fillPath(roundedPath(bar, bar.height() + bar.width()), colors_.handle);
    }

    void drawGlass(const QRectF& rect, double radius, const QColor& top,
                   const QColor& bottom) const {
        painter_.fillPath(roundedPath(rect, radius), downwards(rect, top, bottom));
        const double line = hairline(mapping_.scale);
        drawRing(painter_, rect, radius, 0, line, colors_.outline);
        drawRing(painter_, rect, radius, line, line,
                 downwards(rect, colors_.highlightTop, colors_.highlightBottom));
    }

    QPainter& painter_;
    const ViewMapping& mapping_;
    const DockColors& colors_;
    double restingSide_;
};

}

void paint(QPainter& painter, const Scene& scene, const ViewMapping& mapping,
           const DockColors& colors, const QRect& damage) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::TextAntialiasing);
    const NodePainter nodes{painter, mapping, colors, restingSide(scene)};
    for (const SceneNode& node : scene.nodes) {
        if (node.opacity > 0 && ViewMappings::touched(node, mapping).intersects(damage))
            nodes.paint(node);
    }
}

std::vector<QPainterPath> glassOutlines(const Scene& scene, const ViewMapping& mapping) {
    std::vector<QPainterPath> outlines;
    for (const SceneNode& node : scene.nodes) {
        if (node.opacity <= 0)
            continue;
        const QRectF rect = ViewMappings::drawnRect(node, mapping);
        const double scale = mapping.scale * node.scale;
        if (const auto* glass = std::get_if<GlassNode>(&node.content)) {
            outlines.push_back(
                roundedPath(ViewMappings::snapped(rect), glass->cornerRadius * scale));
        } else if (const auto* label = std::get_if<LabelNode>(&node.content)) {
            const QRectF capsule = layOut(*label, rect, scale).capsule;
            outlines.push_back(roundedPath(capsule, capsule.height() / 2));
        }
    }
    return outlines;
}

}
