/// Makes a page that is higher than its window scrollable, with a slim scroll bar over the page's
/// margin.
#pragma once

#include <QScrollArea>
#include <QScrollBar>
#include <memory>

namespace vireline::xdg {

class PageScroller final : public QScrollArea {
public:
    explicit PageScroller(std::unique_ptr<QWidget> page);

    /// Scroll position, in Qt's pixels.
    [[nodiscard]] int position() const { return verticalScrollBar()->value(); }
    /// Scrolls there at once, or as soon as the page has been laid out and is long enough.
    void scrollTo(int position);

private:
    void resizeEvent(QResizeEvent* event) override;
    void follow();

    /// Mirrors the area's own scroll bar, which is never shown.
    QScrollBar* bar_;
    /// Where to scroll as soon as that is possible.
    int wanted_ = 0;
};

}
