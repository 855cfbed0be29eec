#include "Linux/Common/Painting/DockPictures.hpp"

#include "Displays/DockPanel.hpp"
#include "Icons/IconImage.hpp"
#include "Painting/ScenePainter.hpp"
#include "Support/DockFixture.hpp"
#include "Support/Samples.hpp"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

namespace vireline::test {
namespace {

constexpr std::uint32_t display = 2;
constexpr QRgb background = 0xff687a94;

/// A coloured tile with a ring of fine lines, which would reveal any blur.
QImage drawIcon(int side, const QColor& colour) {
    constexpr double units = 44;
    QImage image{side, side, QImage::Format_ARGB32_Premultiplied};
    image.fill(Qt::transparent);
    QPainter painter{&image};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / units, side / units);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF{2, 2, 40, 40}, 9, 9);
    painter.setBrush(Qt::white);
    for (const double x : {12.0, 16.0, 20.0, 24.0, 28.0})
        painter.drawRect(QRectF{x, 12, 2, 20});
    return image;
}

class SampleIcons final : public Icons {
public:
    [[nodiscard]] ImageHandle iconForFile(const std::string& /*path*/, const std::string& /*key*/,
                                          Size size) override {
        constexpr std::array colours{0xe4572eU, 0x17bebbU, 0x8e44adU, 0x2e86deU, 0x27ae60U};
        return iconOf(size, QColor::fromRgb(colours.at(next_++ % colours.size())));
    }
    [[nodiscard]] ImageHandle namedImage(const std::string& /*name*/, Size size) override {
        return iconOf(size, {120, 124, 130});
    }
    [[nodiscard]] ImageHandle symbol(const std::string& /*name*/,
                                     const std::string& /*accessibilityDescription*/,
                                     Size /*size*/) override {
        return nullptr;
    }
    [[nodiscard]] Subscription observeChanges(std::function<void()> /*handler*/) override {
        return {};
    }

private:
    static ImageHandle iconOf(Size size, const QColor& colour) {
        return std::make_shared<xdg::IconImage>(
            size, [colour](int side) { return drawIcon(side, colour); });
    }

    std::size_t next_ = 0;
};

std::vector<DockItem> items() {
    const auto item = [](const char* name, bool isPinned, bool isRunning) {
        return DockItem{name, name, FileURL::fromPath("/apps/" + std::string{name}), isPinned,
                        isRunning};
    };
    return {item("Browser", true, true), item("Mail", true, false), item("Calendar", true, false),
            item("Terminal", false, true)};
}

PanelSpec specOf(const PicturedDock::Options& options) {
    const auto panels = PanelPlanner::desiredPanels(
        std::vector{sampleHost(1, {0, 0, 1280, 800}), sampleScreen(display, {1280, 0, 800, 600})},
        {.counts = {.pinned = 3, .unpinnedRunning = 1},
         .maxIconSize = options.iconSize,
         .position = options.position,
         .magnification = options.magnification,
         .hiddenDisplays = {}});
    return panels.front();
}

DockViewContext contextWith(DockFixture& fixture, IconStore& icons) {
    const DockViewContext context = fixture.context();
    return {context.model,
            icons,
            context.actions,
            context.runLoop,
            context.pointerSettings,
            context.motionSettings,
            context.trash,
            context.words,
            std::nullopt};
}

}

struct PicturedDock::Parts {
    DockFixture fixture;
    SampleIcons drawn;
    IconStore icons{drawn};
    std::unique_ptr<DockPanel> panel;
    Point pointer;
};

PicturedDock::PicturedDock(const Options& options) : parts_(std::make_unique<Parts>()) {
    DockViewModel& model = parts_->fixture.model;
    model.items.set(items());
    model.configuredIconSize.set(options.iconSize);
    model.magnification.set(options.magnification);
    parts_->panel = std::make_unique<DockPanel>(specOf(options), options.autoHide,
                                                contextWith(parts_->fixture, parts_->icons),
                                                parts_->fixture.platform.panelWindows);
}

PicturedDock::~PicturedDock() = default;

void PicturedDock::signal() {
    DockViewModel& model = parts_->fixture.model;
    model.statuses.set({{"Browser", {.count = 7}}, {"Mail", {.count = 120, .progress = 0.6}}});
    model.marked.set({"Terminal"});
}

void PicturedDock::pointAt(std::size_t tile) {
    std::size_t count = 0;
    for (const SceneNode& node : scene().nodes) {
        if (node.id.part == NodeID::Part::icon && count++ == tile)
            parts_->pointer = node.frame.center();
    }
    send(PointerEvent::Kind::moved);
}

void PicturedDock::press() {
    send(PointerEvent::Kind::pressed);
}

void PicturedDock::moveAlong(double distance) {
    const bool isHorizontal = parts_->panel->spec().position == DockPosition::bottom;
    (isHorizontal ? parts_->pointer.x : parts_->pointer.y) += distance;
    send(PointerEvent::Kind::moved);
}

void PicturedDock::send(PointerEvent::Kind kind) {
    window().listener().pointerEvent({kind, parts_->pointer});
}

FakePanel& PicturedDock::window() const {
    return parts_->fixture.platform.panelWindows.panel(display);
}

/// The scene after all animations have finished.
const Scene& PicturedDock::scene() const {
    constexpr double longEnough = 1;
    window().nextFrame();
    parts_->fixture.platform.runLoop.advance(longEnough);
    window().nextFrame();
    return *window().scene;
}

QImage PicturedDock::picture(double scale, bool isDark) const {
    const Scene& shown = scene();
    const Rect& hosted = *window().hostedFrame;
    const Overhang& overhang = window().overhang;
    const double top = window().frame.height - hosted.maxY();
    const Size size = overhang.around(window().frame).size();
    const auto pixels = [scale](double points) {
        return static_cast<int>(std::lround(points * scale));
    };
    const xdg::ViewMapping mapping{{pixels(overhang.left + hosted.x), pixels(overhang.top + top)},
                                   scale};
    std::vector<xdg::PlacedNode> places;
    xdg::ViewMappings::place(places, shown, mapping);

    QImage canvas{pixels(size.width), pixels(size.height), QImage::Format_ARGB32_Premultiplied};
    const QRect all = canvas.rect();
    xdg::ScenePainter{}.paint(xdg::Pixels::canvas(canvas), {shown.nodes, places}, scale,
                              xdg::DockColors::of(isDark, xdg::Backdrop::translucent),
                              std::span{&all, 1});
    QImage picture{canvas.size(), QImage::Format_RGB32};
    picture.fill(background);
    QPainter{&picture}.drawImage(0, 0, canvas);
    return picture;
}

QImage sheetOf(const std::vector<QImage>& pictures, int columns) {
    constexpr int margin = 8;
    const auto cell = [&](std::size_t row, std::size_t column) {
        const std::size_t index = row * static_cast<std::size_t>(columns) + column;
        return index < pictures.size() ? pictures[index].size() : QSize{};
    };
    const auto count = static_cast<std::size_t>(columns);
    const std::size_t rows = (pictures.size() + count - 1) / count;
    std::vector<int> widths(count, 0);
    std::vector<int> heights(rows, 0);
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < count; ++column) {
            widths[column] = std::max(widths[column], cell(row, column).width());
            heights[row] = std::max(heights[row], cell(row, column).height());
        }
    }
    const auto total = [](const std::vector<int>& lengths) {
        return std::accumulate(lengths.begin(), lengths.end(), margin,
                               [](int sum, int length) { return sum + length + margin; });
    };
    QImage sheet{total(widths), total(heights), QImage::Format_RGB32};
    sheet.fill(background);
    QPainter painter{&sheet};
    int y = margin;
    for (std::size_t row = 0; row < rows; ++row) {
        int x = margin;
        for (std::size_t column = 0; column < count; ++column) {
            if (const std::size_t index = row * count + column; index < pictures.size())
                painter.drawImage(x, y, pictures[index]);
            x += widths[column] + margin;
        }
        y += heights[row] + margin;
    }
    return sheet;
}

}
