/// Lets a page that is higher than its window be scrolled, with a slim bar that lies over the
/// page's margin.
#pragma once

#include <QScrollArea>
#include <QScrollBar>
#include <memory>

namespace vireline::x11 {

class PageScroller final : public QScrollArea {
public:
    explicit PageScroller(std::unique_ptr<QWidget> page);

    /// How far the page is scrolled, in Qt's pixels.
    [[nodiscard]] int position() const { return verticalScrollBar()->value(); }
    /// Scrolls there, or once the page has been laid out and is long enough.
    void scrollTo(int position);

private:
    void resizeEvent(QResizeEvent* event) override;
    void follow();

    /// Moves and shows what the area's own bar, which is never seen, does.
    QScrollBar* bar_;
    /// Where to scroll to as soon as that is possible.
    int wanted_ = 0;
};

}
