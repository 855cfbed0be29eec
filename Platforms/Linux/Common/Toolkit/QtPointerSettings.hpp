/// The desktop's pointer settings, as Qt reports them.
#pragma once

#include "Platform/Desktop/PointerSettings.hpp"

#include <QGuiApplication>
#include <QStyleHints>

namespace vireline::xdg {

class QtPointerSettings final : public PointerSettings {
public:
    [[nodiscard]] double doubleClickInterval() const override {
        return QGuiApplication::styleHints()->mouseDoubleClickInterval() / 1000.0;
    }
};

}
