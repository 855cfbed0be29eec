/// Draws a dock's label, a line of text in a glass capsule, from an image that is cached while the
/// text stays the same.
#pragma once

#include "Painting/DockColors.hpp"
#include "Painting/Pixels/Pixels.hpp"
#include "Painting/Pixels/ViewMapping.hpp"
#include "Presentation/Scene.hpp"

#include <QFont>
#include <QImage>
#include <QRect>
#include <vector>

namespace vireline::xdg {

class LabelPainter {
public:
    void draw(const Canvas& canvas, const LabelNode& label, const PlacedNode& place,
              const DockColors& colors, const QRect& clip);

    /// The capsule's frame in whole pixels.
    [[nodiscard]] static QRect capsule(const LabelNode& label, const PlacedNode& place);

    /// Loads the labels' font, which takes longer than a frame and would otherwise delay the first
    /// label.
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

    /// Enough for the tiles that a pointer passes in one sweep; the latest comes last.
    static constexpr std::size_t most = 24;

    std::vector<Entry> entries_;
};

}
