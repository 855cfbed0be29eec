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

/// Where the element ends that starts at `start`; the content's size if it does not end.
qsizetype endOfElement(const QByteArray& content, const QByteArray& name, qsizetype start) {
    const qsizetype tagEnd = content.indexOf('>', start);
    if (tagEnd > start && content.at(tagEnd - 1) == '/')
        return tagEnd + 1;
    const QByteArray endTag = "</" + name + '>';
    const qsizetype end = content.indexOf(endTag, start);
    return end < 0 ? content.size() : end + endTag.size();
}

QByteArray without(const QByteArray& content, const QByteArray& name) {
    const QByteArray startTag = '<' + name;
    QByteArray others;
    qsizetype end = 0;
    for (qsizetype start = content.indexOf(startTag); start >= 0;
         start = content.indexOf(startTag, end)) {
        others.append(content.constData() + end, start - end);
        end = endOfElement(content, name, start);
    }
    return end == 0 ? content : others.append(content.constData() + end, content.size() - end);
}

/// Without the elements that only others refer to. Where Qt does not support them, it draws what
/// they contain: icons of Adwaita would have a black background.
QByteArray withoutDefinitions(const QByteArray& content) {
    const QByteArray unclipped = without(content, "clipPath");
#if QT_VERSION < QT_VERSION_CHECK(6, 7, 0)
    return without(unclipped, "mask");
#else
    return unclipped;
#endif
}

std::optional<QImage> renderSvg(const QByteArray& content, int side) {
    if (content.size() > maximumSvgBytes)
        return std::nullopt;
    QSvgRenderer renderer{withoutDefinitions(content)};
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
