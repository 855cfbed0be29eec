/// Draws a dock's label, a line of text in a capsule of glass, from a picture that it keeps for as
/// long as the label says the same.
#pragma once

#include "Painting/DockColors.hpp"
#include "Painting/Pixels.hpp"
#include "Painting/ViewMapping.hpp"
#include "Presentation/Scene.hpp"

#include <QFont>
#include <QImage>
#include <QRect>
#include <vector>

namespace vireline::x11 {

class LabelPainter {
public:
    void draw(const Canvas& canvas, const LabelNode& label, const PlacedNode& place,
              const DockColors& colors, const QRect& clip);

    /// Where the capsule lies; whole pixels.
    [[nodiscard]] static QRect capsule(const LabelNode& label, const PlacedNode& place);

    /// Looks the labels' font up, which the first label would otherwise wait for, for longer than a
    /// frame.
    static void prepareFont();

private:
    struct Key {
        LabelNode label;
        QSizeF room;
        double scale = 1;
        DockColors colors;
        QFont font;

        bool operator==(const Key&) const = default;
    };

    struct Entry {
        Key key;
        QImage picture;
    };

    [[nodiscard]] const QImage& picture(Key key, const PlacedNode& place);

    /// As many as a pointer sweeps over in one go; the latest last.
    static constexpr std::size_t most = 24;

    std::vector<Entry> entries_;
};

}
