/// Creates status items for whichever kind of tray the desktop has.
#pragma once

#include "StatusBar/TrayStatusItem.hpp"

#include <utility>

namespace vireline::xdg {

class TrayStatusBar final : public StatusBar {
public:
    explicit TrayStatusBar(StatusBarContext context) : context_(std::move(context)) {}

    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem() override {
        return std::make_unique<TrayStatusItem>(context_);
    }

private:
    StatusBarContext context_;
};

}
