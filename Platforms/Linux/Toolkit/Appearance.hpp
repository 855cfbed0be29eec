/// Whether the desktop is light or dark.
#pragma once

#include "Foundation/Observable.hpp"

#include <QObject>
#include <functional>
#include <string>

namespace vireline::x11 {

class Appearance final : private QObject {
public:
    /// Dark if the widget theme of this name is, or else Qt's palette.
    explicit Appearance(const std::string& widgetTheme);

    [[nodiscard]] bool isDark() const noexcept { return isDark_.get(); }
    [[nodiscard]] Subscription observe(std::function<void()> handler) {
        return isDark_.observe(std::move(handler));
    }

private:
    /// Sees the events of the application object, of which a new palette is one.
    bool eventFilter(QObject* watched, QEvent* event) override;
    [[nodiscard]] bool read() const;

    bool hasDarkTheme_;
    Observable<bool> isDark_;
};

}
