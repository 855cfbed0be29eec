#include "ProgramWindows/Style/EmbeddedPicture.hpp"

#include <QPainter>
#include <QSvgRenderer>

/// Resources in a static library have to be registered by name, from outside any namespace.
static void registerDrawings() {
    Q_INIT_RESOURCE(vireline);
}

namespace vireline::xdg::EmbeddedPicture {

QImage render(const QString& path, int side) {
    registerDrawings();
    QImage image{side, side, QImage::Format_ARGB32_Premultiplied};
    image.fill(Qt::transparent);
    QSvgRenderer renderer{QStringLiteral(":/vireline/") + path};
    if (renderer.isValid()) {
        QPainter painter{&image};
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter, QRectF{image.rect()});
    }
    return image;
}

}
