#include "ProgramWindows/Pages/FormRowView.hpp"

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Controls/RadioOption.hpp"
#include "ProgramWindows/Controls/SegmentedControl.hpp"
#include "ProgramWindows/Controls/StatusLineView.hpp"
#include "ProgramWindows/Controls/Switch.hpp"
#include "ProgramWindows/Controls/TextLabel.hpp"
#include "ProgramWindows/Controls/ValueLabel.hpp"
#include "ProgramWindows/Controls/ValueSlider.hpp"
#include "ProgramWindows/Controls/WidgetFactory.hpp"

#include <QEnterEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>
#include <memory>

namespace vireline::xdg {
namespace {

constexpr int rowPadding = 16;
constexpr int verticalPadding = 12;
constexpr int leastHeight = 50;
constexpr int columnGap = 16;

int stepIndex(const Slider& slider, double value) {
    return static_cast<int>(std::lround((value - slider.minimum) / slider.step));
}

}

FormRowView::FormRowView(const FormRow& row, const FormContext& context, QWidget* parent)
    : QWidget(parent)
    , field_(row.field)
    , context_(context)
    , title_(TextLabel::make(TextLabel::Kind::body, toQString(row.title), this)) {
    setMinimumHeight(leastHeight);
    arrange(row);
    present(row);
}

void FormRowView::arrange(const FormRow& row) {
    auto line = std::make_unique<QHBoxLayout>();
    line->setContentsMargins(rowPadding - Painting::ringRoom, verticalPadding,
                             rowPadding - Painting::ringRoom, verticalPadding);
    line->setSpacing(columnGap);
    auto column = std::make_unique<QVBoxLayout>();
    column_ = column.get();
    column_->setSpacing(4);
    column_->setAlignment(Qt::AlignVCenter);
    addToColumn(*title_);
    line->addLayout(column.release(), 1);
    setLayout(line.release());

    QWidget* const control =
        std::visit([this](const auto& kind) { return addControl(kind); }, row.control);
    if (control != nullptr)
        static_cast<QHBoxLayout*>(layout())->addWidget(control, 0, Qt::AlignVCenter);
}

/// Indents a widget without a focus ring, so that it aligns with those that have one.
void FormRowView::addToColumn(QWidget& widget) const {
    widget.setContentsMargins(Painting::ringRoom, 0, Painting::ringRoom, 0);
    column_->addWidget(&widget);
}

QWidget* FormRowView::addControl(const RadioGroup& group) {
    auto* const options = makeWidget<QWidget>(this);
    name(*options);
    auto lines = std::make_unique<QVBoxLayout>();
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    std::vector<RadioOption*> buttons;
    for (std::size_t i = 0; i < group.options.size(); ++i) {
        auto* const button = makeWidget<RadioOption>(toQString(group.options[i]), options);
        QObject::connect(button, &QAbstractButton::toggled, this, [this, i](bool isOn) {
            if (isOn)
                changed(i);
        });
        lines->addWidget(button);
        buttons.push_back(button);
    }
    options->setLayout(lines.release());
    column_->addWidget(options);
    update_ = [buttons](const FormRow& row) {
        RadioOption* const chosen = buttons.at(std::get<RadioGroup>(row.control).selected);
        if (chosen->isChecked())
            return;
        const QSignalBlocker silent{chosen};
        chosen->setChecked(true);
    };
    return nullptr;
}

QWidget* FormRowView::addControl(const Segments& segments) {
    QStringList titles;
    for (const std::string& option : segments.options)
        titles.append(toQString(option));
    auto* const control = makeWidget<SegmentedControl>(titles, this);
    name(*control);
    control->onChoice = [this](std::size_t index) { changed(index); };
    update_ = [control](const FormRow& row) {
        control->show(std::get<Segments>(row.control).selected);
    };
    return control;
}

QWidget* FormRowView::addControl(const Toggle& /*toggle*/) {
    switch_ = makeWidget<Switch>(context_.animates, this);
    name(*switch_);
    QObject::connect(switch_, &QAbstractButton::toggled, this,
                     [this](bool isOn) { changed(isOn); });
    update_ = [this](const FormRow& row) { switch_->show(std::get<Toggle>(row.control).isOn); };
    return switch_;
}

QWidget* FormRowView::addControl(const Slider& slider) {
    auto* const pair = makeWidget<QWidget>(this);
    auto* const control = makeWidget<ValueSlider>(pair);
    auto* const value = makeWidget<ValueLabel>(static_cast<int>(sliderValueWidth), pair);
    value->setFont(TextLabel::font(TextLabel::Kind::caption));
    name(*control);
    control->setRange(0, stepIndex(slider, slider.maximum));
    control->setPageStep(std::max(1, control->maximum() / 8));
    auto line = std::make_unique<QHBoxLayout>();
    line->setContentsMargins(0, 0, Painting::ringRoom, 0);
    line->setSpacing(2);
    line->addWidget(control, 0, Qt::AlignVCenter);
    line->addWidget(value);
    pair->setLayout(line.release());
    QObject::connect(control, &QAbstractSlider::valueChanged, this,
                     [this, minimum = slider.minimum, step = slider.step](int index) {
                         changed(minimum + index * step);
                     });
    update_ = [control, value](const FormRow& row) {
        const auto& shown = std::get<Slider>(row.control);
        value->setText(toQString(shown.valueText));
        // While the user drags the knob, the user decides where it is.
        if (control->isSliderDown())
            return;
        const QSignalBlocker silent{control};
        control->setValue(stepIndex(shown, shown.value));
    };
    return pair;
}

/// Sets the accessible name, since screen readers do not relate the title beside it to the control.
void FormRowView::name(QWidget& control) const {
    control.setAccessibleName(title_->text());
}

void FormRowView::changed(const FormValue& value) const {
    context_.listener.formChanged(field_, value);
}

void FormRowView::present(const FormRow& row) {
    update_(row);
    if (!row.caption.empty() && caption_ == nullptr) {
        caption_ = TextLabel::make(TextLabel::Kind::caption, {}, this);
        addToColumn(*caption_);
    }
    if (caption_ != nullptr) {
        caption_->setText(toQString(row.caption));
        caption_->setVisible(!row.caption.empty());
    }
    if (row.status && status_ == nullptr) {
        status_ = makeWidget<StatusLineView>(
            context_.symbols, [this] { context_.listener.formStatusButtonPressed(field_); }, this);
        column_->addSpacing(4);
        addToColumn(*status_);
    }
    if (status_ != nullptr) {
        status_->setVisible(row.status.has_value());
        if (row.status)
            status_->present(*row.status);
    }
}

void FormRowView::enterEvent(QEnterEvent* event) {
    isHovered_ = true;
    update();
    QWidget::enterEvent(event);
}

void FormRowView::leaveEvent(QEvent* event) {
    isHovered_ = false;
    update();
    QWidget::leaveEvent(event);
}

void FormRowView::paintEvent(QPaintEvent* /*event*/) {
    if (!isHovered_ || switch_ == nullptr)
        return;
    SmoothPainter painter{*this};
    constexpr int inset = 4;
    constexpr double radius = 8;
    Painting::fill(painter, QRectF{rect()}.adjusted(inset, inset, -inset, -inset), radius,
                   palette().color(QPalette::AlternateBase));
}

void FormRowView::mouseReleaseEvent(QMouseEvent* event) {
    const bool isClick = event->button() == Qt::LeftButton && rect().contains(event->pos());
    if (switch_ != nullptr && isClick)
        switch_->click();
    else
        event->ignore();
}

}
