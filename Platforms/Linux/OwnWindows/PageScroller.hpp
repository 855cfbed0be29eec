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

private:
    void resizeEvent(QResizeEvent* event) override;
    void follow();

    /// Moves and shows what the area's own bar, which is never seen, does.
    QScrollBar* bar_;
};

}
