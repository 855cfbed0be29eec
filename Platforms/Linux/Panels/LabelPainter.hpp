/// Draws a dock's label, a line of text in a capsule of glass, from a picture that it keeps for as
/// long as the label says the same.
#pragma once

#include "Panels/DockColors.hpp"
#include "Panels/ViewMapping.hpp"
#include "Views/Scene.hpp"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>

namespace vireline::x11 {

class LabelPainter {
public:
    void draw(QPainter& painter, const LabelNode& label, const PlacedNode& place,
              const DockColors& colors);

    /// Where the capsule lies; whole pixels.
    [[nodiscard]] static QRect capsule(const LabelNode& label, const PlacedNode& place);

private:
    struct Key {
        LabelNode label;
        QSizeF room;
        double scale = 1;
        DockColors colors;
        QFont font;

        bool operator==(const Key&) const = default;
    };

    Key key_;
    QImage picture_;
};

}
