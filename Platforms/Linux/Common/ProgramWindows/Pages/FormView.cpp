#include "ProgramWindows/Pages/FormView.hpp"

#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Controls/TextLabel.hpp"

#include <QVBoxLayout>
#include <algorithm>
#include <iterator>
#include <memory>

namespace vireline::xdg {
namespace {

constexpr int margin = 20;
constexpr int sectionGap = 20;
constexpr int headingGap = 8;
constexpr int headingInset = 4;
constexpr double cardRadius = 12;
constexpr int lineInset = 16;

/// The background of a section's rows, with separator lines between them.
class Card final : public QWidget {
public:
    explicit Card(QWidget* parent) : QWidget(parent) {
        auto rows = std::make_unique<QVBoxLayout>();
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        setLayout(rows.release());
    }

    [[nodiscard]] QVBoxLayout& rows() const { return static_cast<QVBoxLayout&>(*layout()); }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        SmoothPainter painter{*this};
        const QColor line = palette().color(QPalette::Mid);
        Painting::fill(painter, rect(), cardRadius, palette().color(QPalette::Base));
        Painting::outline(painter, rect(), cardRadius, line);
        const double pixel = 1.0 / devicePixelRatioF();
        bool isFirst = true;
        for (int i = 0; i < rows().count(); ++i) {
            const QWidget* const row = rows().itemAt(i)->widget();
            if (row->isHidden())
                continue;
            if (!isFirst)
                painter.fillRect(
                    QRectF{lineInset, double(row->y()), width() - 2.0 * lineInset, pixel}, line);
            isFirst = false;
        }
    }
};

}

class FormSectionView final : public QWidget {
public:
    FormSectionView(const std::string& title, const FormContext& context, QWidget* parent)
        : QWidget(parent), context_(context), card_(std::make_unique<Card>(this).release()) {
        auto* const heading =
            TextLabel::make(TextLabel::Kind::heading, QString::fromStdString(title), this);
        heading->setContentsMargins(headingInset, 0, headingInset, 0);
        card_->setAccessibleName(heading->text());
        auto column = std::make_unique<QVBoxLayout>();
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(headingGap);
        column->addWidget(heading);
        column->addWidget(card_);
        setLayout(column.release());
    }

    void present(const FormSection& section) {
        for (FormRowView* const row : rows_) {
            const bool stays = std::ranges::count(section.rows, row->field(), &FormRow::field) > 0;
            row->setVisible(stays);
        }
        for (std::size_t i = 0; i < section.rows.size(); ++i)
            presentRow(section.rows[i], static_cast<int>(i));
        card_->update();
    }

private:
    void presentRow(const FormRow& row, int index) {
        const auto known = std::ranges::find(rows_, row.field, &FormRowView::field);
        if (known != rows_.end())
            return (*known)->present(row);
        auto view = std::make_unique<FormRowView>(row, context_, card_);
        rows_.push_back(view.get());
        card_->rows().insertWidget(index, view.release());
    }

    FormContext context_;
    Card* card_;
    std::vector<FormRowView*> rows_;
};

namespace {

std::vector<QWidget*> focusable(const QWidget& row) {
    std::vector<QWidget*> found;
    const auto widgets = row.findChildren<QWidget*>();
    std::ranges::copy_if(widgets, std::back_inserter(found), [](const QWidget* widget) {
        return widget->focusPolicy() != Qt::NoFocus && widget->focusProxy() == nullptr;
    });
    return found;
}

const FormRowView* rowAround(const QWidget* widget) {
    const FormRowView* row = nullptr;
    for (; widget != nullptr && row == nullptr; widget = widget->parentWidget())
        row = dynamic_cast<const FormRowView*>(widget);
    return row;
}

}

FormView::FormView(const FormContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
    auto column = std::make_unique<QVBoxLayout>();
    column->setContentsMargins(margin, margin - 4, margin, margin);
    column->setSpacing(sectionGap);
    column->addStretch(1);
    setLayout(column.release());
}

void FormView::present(const Form& form) {
    for (std::size_t i = 0; i < form.sections.size(); ++i) {
        if (i == sections_.size()) {
            auto section =
                std::make_unique<FormSectionView>(form.sections[i].title, context_, this);
            sections_.push_back(section.get());
            static_cast<QVBoxLayout*>(layout())->insertWidget(static_cast<int>(i),
                                                              section.release());
        }
        sections_[i]->present(form.sections[i]);
    }
}

std::optional<FormView::Place> FormView::focus() const {
    const QWidget* const widget = window()->focusWidget();
    const FormRowView* const row = rowAround(widget);
    if (row == nullptr)
        return std::nullopt;
    const auto controls = focusable(*row);
    const auto found = std::ranges::find(controls, widget);
    if (found == controls.end())
        return std::nullopt;
    return Place{row->field(), static_cast<std::size_t>(found - controls.begin())};
}

void FormView::setFocus(const Place& place) {
    for (const QWidget* const widget : findChildren<QWidget*>()) {
        const auto* const row = dynamic_cast<const FormRowView*>(widget);
        if (row == nullptr || row->field() != place.field)
            continue;
        const auto controls = focusable(*row);
        if (place.index < controls.size())
            controls[place.index]->setFocus(Qt::OtherFocusReason);
    }
}

}
