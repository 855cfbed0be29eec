#include "ProgramWindows/Style/WindowPalette.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::xdg::WindowPalette {
namespace {

constexpr int middleLightness = 128;

/// Perceived brightness, from 0 to 1.
double luminance(const QColor& colour) {
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// Adjusts the accent colour: dark enough for white text on it, and bright enough to stand out from
/// a dark card.
QColor usableAccent(const QColor& accent, bool isDark) {
    constexpr double brightest = 0.32;
    constexpr float step = 0.02F;
    float hue = 0;
    float saturation = 0;
    float lightness = 0;
    accent.getHslF(&hue, &saturation, &lightness);
    // Qt reports a negative hue for greys.
    hue = std::max(hue, 0.0F);
    lightness = std::clamp(lightness, isDark ? 0.45F : 0.3F, 0.62F);
    while (luminance(QColor::fromHslF(hue, saturation, lightness)) > brightest)
        lightness -= step;
    return QColor::fromHslF(hue, saturation, lightness);
}

QPalette light() {
    QPalette palette;
    palette.setColor(QPalette::Window, {244, 244, 246});
    palette.setColor(QPalette::Base, {255, 255, 255});
    palette.setColor(QPalette::AlternateBase, {248, 248, 250});
    palette.setColor(QPalette::Mid, {226, 226, 230});
    palette.setColor(QPalette::Button, {230, 230, 234});
    palette.setColor(QPalette::Dark, {196, 196, 202});
    palette.setColor(QPalette::Light, {255, 255, 255});
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, {29, 29, 33});
    palette.setColor(QPalette::PlaceholderText, {98, 98, 106});
    return palette;
}

QPalette dark() {
    QPalette palette;
    palette.setColor(QPalette::Window, {32, 33, 36});
    palette.setColor(QPalette::Base, {45, 46, 50});
    palette.setColor(QPalette::AlternateBase, {50, 51, 56});
    palette.setColor(QPalette::Mid, {62, 63, 69});
    palette.setColor(QPalette::Button, {66, 67, 74});
    palette.setColor(QPalette::Dark, {98, 99, 108});
    palette.setColor(QPalette::Light, {104, 106, 116});
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, {242, 242, 245});
    palette.setColor(QPalette::PlaceholderText, {178, 179, 187});
    return palette;
}

QColor mixed(const QColor& colour, const QColor& other, double share) {
    const auto mix = [share](int a, int b) {
        return static_cast<int>(a * (1 - share) + b * share);
    };
    return {mix(colour.red(), other.red()), mix(colour.green(), other.green()),
            mix(colour.blue(), other.blue())};
}

}

QPalette make(bool isDark, const QColor& accent) {
    QPalette palette = isDark ? dark() : light();
    palette.setColor(QPalette::Highlight, usableAccent(accent, isDark));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < middleLightness;
}

QColor tone(const QPalette& palette, StatusLine::Tone tone) {
    switch (tone) {
    case StatusLine::Tone::positive:
        return isDark(palette) ? QColor{70, 207, 104} : QColor{34, 150, 66};
    case StatusLine::Tone::warning:
        return isDark(palette) ? QColor{255, 172, 84} : QColor{176, 88, 0};
    case StatusLine::Tone::neutral:
        break;
    }
    return palette.color(QPalette::Text);
}

QColor hovered(const QPalette& palette, const QColor& colour) {
    return mixed(colour, palette.color(QPalette::Text), 0.05);
}

QColor pressed(const QPalette& palette, const QColor& colour) {
    return mixed(colour, palette.color(QPalette::Text), 0.12);
}

}
