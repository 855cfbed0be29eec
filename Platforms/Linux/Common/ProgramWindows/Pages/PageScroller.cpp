#include "ProgramWindows/Pages/PageScroller.hpp"

#include <utility>

namespace vireline::xdg {
namespace {

constexpr int barWidth = 12;

constexpr const char* barStyle =
    "QScrollBar { background: transparent; border: none; margin: 0; }"
    "QScrollBar::handle { background: palette(dark); border-radius: 3px; margin: 3px;"
    " min-height: 36px; }"
    "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }";

}

PageScroller::PageScroller(std::unique_ptr<QWidget> page)
    : bar_(std::make_unique<QScrollBar>(Qt::Vertical, this).release()) {
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(page.release());
    viewport()->setBackgroundRole(QPalette::Window);
    widget()->setAutoFillBackground(false);

    bar_->setStyleSheet(QString::fromLatin1(barStyle));
    bar_->setFocusPolicy(Qt::NoFocus);
    QScrollBar* const own = verticalScrollBar();
    QObject::connect(own, &QAbstractSlider::rangeChanged, this, [this] { follow(); });
    QObject::connect(own, &QAbstractSlider::valueChanged, bar_, &QAbstractSlider::setValue);
    QObject::connect(bar_, &QAbstractSlider::valueChanged, own, &QAbstractSlider::setValue);
    follow();
}

void PageScroller::scrollTo(int position) {
    wanted_ = position;
    follow();
}

void PageScroller::follow() {
    QScrollBar* const own = verticalScrollBar();
    if (wanted_ > 0 && own->maximum() >= wanted_)
        own->setValue(std::exchange(wanted_, 0));
    bar_->setRange(own->minimum(), own->maximum());
    bar_->setPageStep(own->pageStep());
    bar_->setSingleStep(own->singleStep());
    bar_->setValue(own->value());
    bar_->setVisible(own->maximum() > own->minimum());
}

void PageScroller::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const int x = layoutDirection() == Qt::RightToLeft ? 0 : width() - barWidth;
    bar_->setGeometry(x, 0, barWidth, height());
    bar_->raise();
    follow();
}

}
