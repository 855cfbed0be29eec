#include "StatusBar/TrayIcon.hpp"

#include "Connection/X11Connection.hpp"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace vireline::x11 {
namespace {

/// Initial size; trays that want another one resize their icons at once.
constexpr std::uint16_t firstSide = 24;
constexpr std::uint8_t translucentDepth = 32;
/// The symbol's size as a fraction of the icon's window.
constexpr double symbolShare = 0.84;

struct Visual {
    xcb_visualid_t id = XCB_NONE;
    std::uint8_t depth = 0;
};

const xcb_screen_t& screenOf(const X11Connection& connection) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    for (int i = 0; i < connection.screenNumber() && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    return *screens.data;
}

/// The visual that the tray requests for its icons if it has an alpha channel, otherwise the
/// screen's.
Visual visualFor(const X11Connection& connection, xcb_window_t manager) {
    const xcb_screen_t& screen = screenOf(connection);
    const auto asked = connection.items(manager, "_NET_SYSTEM_TRAY_VISUAL", XCB_ATOM_VISUALID);
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0;
         xcb_depth_next(&depths)) {
        if (depths.data->depth != translucentDepth || asked.empty())
            continue;
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0;
             xcb_visualtype_next(&visuals)) {
            if (visuals.data->visual_id == asked.front())
                return {asked.front(), translucentDepth};
        }
    }
    return {screen.root_visual, screen.root_depth};
}

bool isBright(const QImage& image) {
    const QColor average =
        image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
    constexpr int middle = 140;
    return average.alpha() > middle && qGray(average.rgb()) > middle;
}

}

TrayIcon::TrayIcon(X11Connection& connection, xcb_window_t manager, const std::string& name,
                   xdg::SystemTray::IconCallbacks callbacks)
    : connection_(connection), manager_(manager), callbacks_(std::move(callbacks)) {
    create(name);
    events_ = connection_.observe([this](const xcb_generic_event_t& event) { handle(event); });
    dock();
}

TrayIcon::~TrayIcon() {
    if (window_ != XCB_NONE)
        xcb_destroy_window(connection_.get(), window_);
    if (colormap_ != XCB_NONE)
        xcb_free_colormap(connection_.get(), colormap_);
    connection_.flush();
}

void TrayIcon::create(const std::string& name) {
    xcb_connection_t* const server = connection_.get();
    const Visual visual = visualFor(connection_, manager_);
    depth_ = visual.depth;
    width_ = firstSide;
    height_ = firstSide;
    isTranslucent_ = depth_ == translucentDepth;
    const std::uint32_t events = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                 XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
    window_ = xcb_generate_id(server);
    if (isTranslucent_) {
        colormap_ = xcb_generate_id(server);
        xcb_create_colormap(server, XCB_COLORMAP_ALLOC_NONE, colormap_, connection_.root(),
                            visual.id);
        const std::array<std::uint32_t, 4> values{0, 0, events, colormap_};
        xcb_create_window(server, depth_, window_, connection_.root(), 0, 0, firstSide, firstSide,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual.id,
                          XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK |
                              XCB_CW_COLORMAP,
                          values.data());
    } else {
        const std::array<std::uint32_t, 2> values{XCB_BACK_PIXMAP_PARENT_RELATIVE, events};
        xcb_create_window(server, depth_, window_, connection_.root(), 0, 0, firstSide, firstSide,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual.id,
                          XCB_CW_BACK_PIXMAP | XCB_CW_EVENT_MASK, values.data());
    }
    using namespace std::string_view_literals;
    constexpr std::string_view windowClass = "vireline\0Vireline\0"sv;
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                        8, static_cast<std::uint32_t>(windowClass.size()), windowClass.data());
    connection_.setText(window_, "_NET_WM_NAME", name);
}

void TrayIcon::dock() {
    constexpr std::uint32_t protocolVersion = 0;
    constexpr std::uint32_t wantsToBeMapped = 1;
    constexpr std::uint32_t requestDock = 0;
    connection_.setItems(window_, "_XEMBED_INFO", connection_.atom("_XEMBED_INFO"),
                         std::array{protocolVersion, wantsToBeMapped});
    connection_.sendToWindow(
        manager_, "_NET_SYSTEM_TRAY_OPCODE",
        std::array<std::uint32_t, 5>{connection_.userTime(), requestDock, window_, 0, 0});
    connection_.flush();
}

void TrayIcon::handle(const xcb_generic_event_t& event) {
    switch (eventType(event)) {
    case XCB_EXPOSE:
        if (as<xcb_expose_event_t>(event).window == window_)
            paint();
        break;
    case XCB_CONFIGURE_NOTIFY: {
        const auto& configured = as<xcb_configure_notify_event_t>(event);
        if (configured.window != window_)
            break;
        width_ = configured.width;
        height_ = configured.height;
        paint();
        break;
    }
    case XCB_BUTTON_PRESS:
        buttonPressed(as<xcb_button_press_event_t>(event));
        break;
    case XCB_BUTTON_RELEASE:
        buttonReleased(as<xcb_button_release_event_t>(event));
        break;
    case XCB_DESTROY_NOTIFY:
        // A tray that exits may destroy its icons.
        if (as<xcb_destroy_notify_event_t>(event).window == window_)
            window_ = XCB_NONE;
        break;
    default:
        break;
    }
}

/// Pressing a second button cancels the click, as in toolkits.
void TrayIcon::buttonPressed(const xcb_button_press_event_t& press) {
    if (press.event != window_)
        return;
    constexpr unsigned int anyButton = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    const bool isAlone = (press.state & anyButton) == 0;
    const bool clicks = press.detail == XCB_BUTTON_INDEX_1 || press.detail == XCB_BUTTON_INDEX_3;
    pressed_ = isAlone && clicks ? std::optional{press.detail} : std::nullopt;
}

void TrayIcon::buttonReleased(const xcb_button_release_event_t& release) {
    if (release.event != window_ || pressed_ != release.detail)
        return;
    pressed_.reset();
    const bool isOnIcon = release.same_screen != 0 && release.event_x >= 0 &&
                          release.event_x < width_ && release.event_y >= 0 &&
                          release.event_y < height_;
    // Must be the last statement, because a click may destroy the icon.
    if (isOnIcon)
        callbacks_.clicked();
}

void TrayIcon::paint() {
    QImage picture = ground();
    if (window_ == XCB_NONE || picture.isNull())
        return;
    const int side = static_cast<int>(std::min(width_, height_) * symbolShare);
    const QImage symbol = callbacks_.picture(side, colourOn(picture));
    QPainter painter{&picture};
    painter.drawImage((width_ - side) / 2, (height_ - side) / 2, symbol);
    painter.end();
    show(picture);
}

/// The pixels behind the icon; null if they are not visible.
QImage TrayIcon::ground() const {
    if (width_ <= 0 || height_ <= 0 || window_ == XCB_NONE)
        return {};
    if (isTranslucent_) {
        QImage image{width_, height_, QImage::Format_ARGB32_Premultiplied};
        image.fill(Qt::transparent);
        return image;
    }
    xcb_connection_t* const server = connection_.get();
    const auto width = static_cast<std::uint16_t>(width_);
    const auto height = static_cast<std::uint16_t>(height_);
    xcb_clear_area(server, 0, window_, 0, 0, width, height);
    // Fails while the window is not visible; an expose event follows when it is.
    const Owned<xcb_get_image_reply_t> reply{xcb_get_image_reply(
        server, xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, window_, 0, 0, width, height, ~0U),
        nullptr)};
    QImage image{width_, height_, QImage::Format_RGB32};
    const auto bytes = static_cast<std::size_t>(image.sizeInBytes());
    if (!reply || static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) < bytes)
        return {};
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()), bytes);
    return image;
}

/// The tray's own symbol colour if it sets one, otherwise one with good contrast.
QColor TrayIcon::colourOn(const QImage& ground) const {
    const auto colours = connection_.items(manager_, "_NET_SYSTEM_TRAY_COLORS", XCB_ATOM_CARDINAL);
    constexpr std::size_t foreground = 3;
    constexpr unsigned toByte = 8;
    if (colours.size() >= foreground)
        return {static_cast<int>((colours[0] >> toByte) & 0xffU),
                static_cast<int>((colours[1] >> toByte) & 0xffU),
                static_cast<int>((colours[2] >> toByte) & 0xffU)};
    return isBright(ground) ? QColor{40, 40, 44} : QColor{240, 240, 244};
}

void TrayIcon::show(const QImage& picture) const {
    xcb_connection_t* const server = connection_.get();
    const xcb_gcontext_t context = xcb_generate_id(server);
    xcb_create_gc(server, context, window_, 0, nullptr);
    xcb_put_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, window_, context,
                  static_cast<std::uint16_t>(picture.width()),
                  static_cast<std::uint16_t>(picture.height()), 0, 0, 0, depth_,
                  static_cast<std::uint32_t>(picture.sizeInBytes()), picture.constBits());
    xcb_free_gc(server, context);
    connection_.flush();
}

}
