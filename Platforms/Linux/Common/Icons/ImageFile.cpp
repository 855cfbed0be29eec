#include "Icons/ImageFile.hpp"

#include "Files/BoundedFile.hpp"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>

namespace vireline::xdg::ImageFile {
namespace {

constexpr std::size_t maximumBytes = 8U << 20U;
constexpr qsizetype maximumSvgBytes = 2 << 20;
/// Pixels; four times the largest size in which icons are made.
constexpr int maximumSide = 4096;

QImage transparentSquare(int side) {
    QImage square{side, side, QImage::Format_ARGB32_Premultiplied};
    square.fill(Qt::transparent);
    return square;
}

bool looksLikeSvg(const QByteArray& content) {
    constexpr qsizetype preamble = 4096;
    return content.left(preamble).contains("<svg");
}

std::optional<QImage> renderSvg(const QByteArray& content, int side) {
    if (content.size() > maximumSvgBytes)
        return std::nullopt;
    QSvgRenderer renderer{content};
    if (!renderer.isValid())
        return std::nullopt;
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage square = transparentSquare(side);
    QPainter painter{&square};
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF{square.rect()});
    return square;
}

/// Naming the format saves Qt from trying all of its plugins.
QByteArray formatOf(const QByteArray& content) {
    return content.startsWith("\x89PNG") ? QByteArrayLiteral("png") : QByteArray{};
}

std::optional<QImage> readPicture(const QByteArray& content, int side) {
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader{&buffer, formatOf(content)};
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty() || std::max(size.width(), size.height()) > maximumSide)
        return std::nullopt;
    const QImage picture = reader.read();
    return picture.isNull() ? std::nullopt : std::optional{fitted(picture, side)};
}

}

std::optional<QImage> load(const std::string& path, int side) {
    const auto file = BoundedFile::read(path, maximumBytes);
    if (!file)
        return std::nullopt;
    const auto content =
        QByteArray::fromRawData(file->data(), static_cast<qsizetype>(file->size()));
    return looksLikeSvg(content) ? renderSvg(content, side) : readPicture(content, side);
}

QImage fitted(const QImage& picture, int side) {
    const QImage source = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QImage scaled = std::max(source.width(), source.height()) == side
                        ? source
                        : source.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (scaled.width() == side && scaled.height() == side)
        return scaled;
    QImage square = transparentSquare(side);
    QPainter painter{&square};
    painter.drawImage((side - scaled.width()) / 2, (side - scaled.height()) / 2, scaled);
    return square;
}

}
