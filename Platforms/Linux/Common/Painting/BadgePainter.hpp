/// Draws badges, short texts on capsules, from images that are cached while they stay the same.
#pragma once

#include "Painting/DockColors.hpp"
#include "Painting/Pixels/Pixels.hpp"
#include "Painting/Pixels/ViewMapping.hpp"

#include <QImage>
#include <QSize>
#include <string>
#include <vector>

namespace vireline::xdg {

class BadgePainter {
public:
    /// The capsule fills the place.
    void draw(const Canvas& canvas, const std::string& text, const PlacedNode& place,
              const DockColors& colors, const QRect& clip);

private:
    struct Key {
        std::string text;
        QSize size;
        DockColors colors;

        bool operator==(const Key&) const = default;
    };
    struct Entry {
        Key key;
        QImage picture;
    };

    [[nodiscard]] const QImage& picture(Key key);

    /// The latest comes last.
    static constexpr std::size_t most = 16;

    std::vector<Entry> entries_;
};

}
