#include "VirtualDesktop/WidgetTheme.hpp"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vireline::desktop {
namespace {

/// The least significant byte first.
std::string number(std::size_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text +=
            static_cast<char>(static_cast<std::uint8_t>(value >> (8U * static_cast<unsigned>(i))));
    return text;
}

/// Filled up to a multiple of four bytes.
std::string padded(std::string_view text) {
    std::string result{text};
    result.resize((text.size() + 3) / 4 * 4);
    return result;
}

/// One text in the shape that XSETTINGS asks for.
std::string settings(std::string_view name, std::string_view value) {
    constexpr std::size_t leastFirst = 0;
    constexpr std::size_t serial = 1;
    constexpr std::size_t count = 1;
    constexpr std::size_t textKind = 1;
    return number(leastFirst, 4) + number(serial, 4) + number(count, 4) + number(textKind, 2) +
           number(name.size(), 2) + padded(name) + number(serial, 4) + number(value.size(), 4) +
           padded(value);
}

}

void announceWidgetTheme(const XClient& client, std::string_view name) {
    const xcb_window_t daemon = client.createWindow({0, 0, 1, 1}, 0);
    client.setText(daemon, "_XSETTINGS_SETTINGS", "_XSETTINGS_SETTINGS",
                   settings("Net/ThemeName", name));
    xcb_set_selection_owner(client.get(), daemon, client.atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
    client.sync();
}

}
