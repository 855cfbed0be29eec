/// Whether the desktop uses a light or a dark style.
#pragma once

#include "Foundation/Observable.hpp"

#include <QObject>
#include <functional>
#include <string>

namespace vireline::xdg {

class Appearance final : private QObject {
public:
    /// Dark if the widget theme's name says so, otherwise determined from Qt's palette.
    explicit Appearance(const std::string& widgetTheme);

    [[nodiscard]] bool isDark() const noexcept { return isDark_.get(); }
    [[nodiscard]] Subscription observe(std::function<void()> handler) {
        return isDark_.observe(std::move(handler));
    }

private:
    /// Watches the application object for palette changes.
    bool eventFilter(QObject* watched, QEvent* event) override;
    [[nodiscard]] bool read() const;

    bool hasDarkTheme_;
    Observable<bool> isDark_;
};

}
