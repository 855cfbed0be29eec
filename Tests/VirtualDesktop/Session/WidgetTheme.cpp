#include "VirtualDesktop/Session/WidgetTheme.hpp"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vireline::desktop {
namespace {

/// Little-endian.
std::string number(std::size_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text +=
            static_cast<char>(static_cast<std::uint8_t>(value >> (8U * static_cast<unsigned>(i))));
    return text;
}

/// Padded to a multiple of four bytes.
std::string padded(std::string_view text) {
    std::string result{text};
    result.resize((text.size() + 3) / 4 * 4);
    return result;
}

enum class SettingKind : std::uint8_t { number, text };

/// The XSETTINGS property with a single setting, whose value is encoded.
std::string property(SettingKind kind, std::string_view name, const std::string& value) {
    constexpr std::size_t leastFirst = 0;
    constexpr std::size_t serial = 1;
    constexpr std::size_t count = 1;
    return number(leastFirst, 4) + number(serial, 4) + number(count, 4) +
           number(static_cast<std::size_t>(kind), 2) + number(name.size(), 2) + padded(name) +
           number(serial, 4) + value;
}

std::string settings(std::string_view name, std::string_view value) {
    return property(SettingKind::text, name, number(value.size(), 4) + padded(value));
}

constexpr std::string_view propertyName = "_XSETTINGS_SETTINGS";
constexpr std::string_view selection = "_XSETTINGS_S0";

xcb_window_t start(const XClient& client, const std::string& content) {
    const xcb_window_t daemon = client.createWindow({0, 0, 1, 1}, 0);
    client.setText(daemon, propertyName, propertyName, content);
    xcb_set_selection_owner(client.get(), daemon, client.atom(selection), XCB_CURRENT_TIME);
    return daemon;
}

}

void announceWidgetTheme(const XClient& client, std::string_view name) {
    start(client, settings("Net/ThemeName", name));
    client.sync();
}

void announceNoAnimations(const XClient& client) {
    start(client, property(SettingKind::number, "Gtk/EnableAnimations", number(0, 4)));
    client.sync();
}

xcb_window_t announceIconTheme(const XClient& client, std::string_view name) {
    const xcb_window_t daemon = start(client, settings("Net/IconThemeName", name));
    client.sendTo(client.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY, client.root(), "MANAGER",
                  {0, client.atom(selection), daemon});
    client.sync();
    return daemon;
}

void changeIconTheme(const XClient& client, xcb_window_t daemon, std::string_view name) {
    client.setText(daemon, propertyName, propertyName, settings("Net/IconThemeName", name));
    client.sync();
}

}
