#include "ProgramWindows/Pages/OnboardingPageView.hpp"

#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Controls/PushButton.hpp"
#include "ProgramWindows/Controls/StatusLineView.hpp"
#include "ProgramWindows/Controls/SymbolView.hpp"
#include "ProgramWindows/Controls/TextLabel.hpp"
#include "ProgramWindows/Controls/WidgetFactory.hpp"
#include "ProgramWindows/Style/ProgramIcon.hpp"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <cmath>
#include <memory>
#include <utility>

namespace vireline::xdg {
namespace {

constexpr int outerPadding = 32;
constexpr int innerPadding = 16;
constexpr int featureSymbolSide = 22;

/// Shows the program's icon.
class Emblem final : public QWidget {
public:
    Emblem(int side, QWidget* parent) : QWidget(parent) { setFixedSize(side, side); }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        SmoothPainter painter{*this};
        QPixmap picture =
            ProgramIcon::picture(static_cast<int>(std::lround(width() * devicePixelRatioF())));
        picture.setDevicePixelRatio(devicePixelRatioF());
        painter.drawPixmap(0, 0, picture);
    }
};

/// Page indicator with one dot per page.
class PageDots final : public QWidget {
public:
    PageDots(int count, int current, QWidget* parent)
        : QWidget(parent), count_(count), current_(current) {
        setFixedSize(count * dot + (count - 1) * gap, dot);
        setAccessibleName(QStringLiteral("%1 / %2").arg(current + 1).arg(count));
    }

private:
    static constexpr int dot = 7;
    static constexpr int gap = 8;

    void paintEvent(QPaintEvent* /*event*/) override {
        SmoothPainter painter{*this};
        QColor other = palette().color(QPalette::PlaceholderText);
        other.setAlphaF(0.3F);
        for (int i = 0; i < count_; ++i) {
            const QRectF circle{double(i) * (dot + gap), 0, dot, dot};
            Painting::fill(painter, circle, dot / 2.0,
                           i == current_ ? palette().color(QPalette::Highlight) : other);
        }
    }

    int count_;
    int current_;
};

}

OnboardingPageView::OnboardingPageView(const OnboardingPage& page, const Symbols& symbols,
                                       Acted acted)
    : symbols_(symbols), acted_(std::move(acted)) {
    auto column = std::make_unique<QVBoxLayout>();
    // Buttons leave room for their invisible focus rings, which must not widen the visible margin.
    constexpr int padding = outerPadding + innerPadding;
    constexpr int ringed = padding - Painting::ringRoom;
    column->setContentsMargins(ringed, padding, ringed, ringed);
    column->setSpacing(0);
    if (page.rows.empty())
        addCover(page, *column);
    else
        addFeatures(page, *column);
    if (page.permission)
        addPermission(*page.permission, *column);
    column->addStretch(1);
    addNavigation(page, *column);
    setLayout(column.release());
}

QLabel* OnboardingPageView::addText(TextLabel::Kind kind, const std::string& words) {
    QLabel* const label = TextLabel::make(kind, toQString(words), this);
    label->setContentsMargins(Painting::ringRoom, 0, Painting::ringRoom, 0);
    return label;
}

/// A page without features shows little text, centred.
void OnboardingPageView::addCover(const OnboardingPage& page, QVBoxLayout& column) {
    constexpr int emblemSide = 112;
    constexpr int gap = 20;
    column.addStretch(1);
    column.addWidget(makeWidget<Emblem>(emblemSide, this), 0, Qt::AlignHCenter);
    column.addSpacing(gap);
    QLabel* const title = addText(TextLabel::Kind::title, page.title);
    title->setAlignment(Qt::AlignHCenter);
    column.addWidget(title);
    column.addSpacing(gap / 2);
    QLabel* const words = addText(TextLabel::Kind::quiet, page.text);
    words->setAlignment(Qt::AlignHCenter);
    column.addWidget(words);
}

void OnboardingPageView::addFeatures(const OnboardingPage& page, QVBoxLayout& column) {
    // Tighter spacing on the page that also shows the permission.
    const int gap = page.permission ? 9 : 16;
    constexpr int textGap = 4;
    column.addWidget(addText(TextLabel::Kind::title, page.title));
    if (!page.text.empty()) {
        column.addSpacing(textGap);
        column.addWidget(addText(TextLabel::Kind::quiet, page.text));
    }
    column.addSpacing(gap + textGap);
    for (const FeatureRow& feature : page.rows) {
        auto row = std::make_unique<QHBoxLayout>();
        row->setSpacing(gap);
        row->setContentsMargins(Painting::ringRoom, 0, Painting::ringRoom, 0);
        auto* const symbol =
            makeWidget<SymbolView>(symbols_, featureSymbolSide, SymbolView::Look::tinted, this);
        symbol->show(feature.symbol, StatusLine::Tone::neutral);
        row->addWidget(symbol, 0, Qt::AlignVCenter);
        row->addWidget(TextLabel::make(TextLabel::Kind::body, toQString(feature.text), this), 1,
                       Qt::AlignVCenter);
        column.addLayout(row.release());
        column.addSpacing(gap);
    }
}

void OnboardingPageView::addPermission(const PermissionBlock& permission, QVBoxLayout& column) {
    constexpr int gap = 4;
    column.addSpacing(gap);
    if (permission.line) {
        auto* const line = makeWidget<StatusLineView>(symbols_, [] {}, this);
        line->setContentsMargins(Painting::ringRoom, 0, Painting::ringRoom, 0);
        line->present(*permission.line);
        column.addWidget(line);
    }
    if (permission.button) {
        column.addWidget(makeButton(*permission.button, false), 0, Qt::AlignLeading);
    }
    if (!permission.caption.empty()) {
        column.addSpacing(gap);
        column.addWidget(addText(TextLabel::Kind::caption, permission.caption));
    }
}

void OnboardingPageView::addNavigation(const OnboardingPage& page, QVBoxLayout& column) {
    auto row = std::make_unique<QHBoxLayout>();
    row->setContentsMargins(Painting::ringRoom, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(makeWidget<PageDots>(page.pageCount, page.index, this));
    row->addStretch(1);
    for (std::size_t i = 0; i < page.buttons.size(); ++i) {
        const bool isMain = i + 1 == page.buttons.size();
        QWidget* const button = makeButton(page.buttons[i], isMain);
        row->addWidget(button);
        if (isMain)
            mainButton_ = button;
    }
    column.addLayout(row.release());
}

QWidget* OnboardingPageView::makeButton(const OnboardingButton& button, bool isProminent) {
    auto* const made = makeWidget<PushButton>(
        toQString(button.title),
        isProminent ? PushButton::Look::prominent : PushButton::Look::plain, this);
    made->setAutoDefault(true);
    QObject::connect(made, &QAbstractButton::clicked, this,
                     [this, action = button.action] { acted_(action); });
    return made;
}

}
