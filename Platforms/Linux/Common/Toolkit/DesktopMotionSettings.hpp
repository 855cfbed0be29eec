/// Whether the desktop wants animations, read from its settings daemon when the program starts.
#pragma once

#include "Desktop/SettingsDaemon.hpp"
#include "Platform/Desktop/MotionSettings.hpp"

namespace vireline::xdg {

class DesktopMotionSettings final : public MotionSettings {
public:
    explicit DesktopMotionSettings(const DesktopSettings::Numbers& numbers)
        : reducesMotion_(asksForLess(numbers)) {}

    [[nodiscard]] bool reducesMotion() const override { return reducesMotion_; }

private:
    [[nodiscard]] static bool asksForLess(const DesktopSettings::Numbers& numbers) {
        const auto animations = numbers.find("Gtk/EnableAnimations");
        return animations != numbers.end() && animations->second == 0;
    }

    bool reducesMotion_;
};

}
