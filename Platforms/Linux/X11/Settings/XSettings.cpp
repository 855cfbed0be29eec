#include "Settings/XSettings.hpp"

#include "Connection/X11Connection.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>

namespace vireline::x11::XSettings {
namespace {

enum class Kind : std::uint8_t { integer = 0, text = 1, colour = 2 };

/// Reads values off the front of the bytes, and fails once they run out.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {
        const auto order = take(4);
        constexpr char leastFirst = 0;
        isLittleEndian_ = !order.empty() && order.front() == leastFirst;
    }

    /// Empty if fewer bytes are left.
    std::string_view take(std::size_t count) {
        if (count > rest_.size()) {
            rest_ = {};
            return {};
        }
        const auto taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return taken;
    }

    std::optional<std::uint32_t> number(std::size_t bytes) {
        const auto digits = take(bytes);
        if (digits.empty())
            return std::nullopt;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < bytes; ++i) {
            const std::size_t place = isLittleEndian_ ? bytes - 1 - i : i;
            value = value << 8U | static_cast<std::uint8_t>(digits[place]);
        }
        return value;
    }

    /// A text of that length, padded to a multiple of four bytes.
    std::optional<std::string_view> text(std::optional<std::uint32_t> length) {
        if (!length || *length > rest_.size())
            return std::nullopt;
        const auto value = take(*length);
        take((4 - *length % 4) % 4);
        return value;
    }

private:
    std::string_view rest_;
    bool isLittleEndian_ = true;
};

struct Setting {
    std::string_view name;
    std::variant<std::monostate, std::string_view, std::uint32_t> value;
};

/// Fails at the first malformed setting.
std::optional<Setting> next(Reader& reader) {
    const auto kind = reader.number(1);
    reader.take(1);
    const auto name = reader.text(reader.number(2));
    const auto serial = reader.number(4);
    if (!kind || !name || !serial)
        return std::nullopt;
    switch (static_cast<Kind>(*kind)) {
    case Kind::integer:
        if (const auto value = reader.number(4))
            return Setting{*name, *value};
        return std::nullopt;
    case Kind::colour:
        reader.take(8);
        return Setting{*name, {}};
    case Kind::text:
        if (const auto value = reader.text(reader.number(4)))
            return Setting{*name, *value};
        return std::nullopt;
    }
    return std::nullopt;
}

}

xdg::DesktopSettings parse(std::string_view bytes) {
    Reader reader{bytes};
    reader.take(4);
    const std::uint32_t count = reader.number(4).value_or(0);
    xdg::DesktopSettings values;
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto setting = next(reader);
        if (!setting)
            break;
        if (const auto* text = std::get_if<std::string_view>(&setting->value)) {
            values.texts.emplace(setting->name, *text);
        } else if (const auto* number = std::get_if<std::uint32_t>(&setting->value)) {
            values.numbers.emplace(setting->name, static_cast<std::int32_t>(*number));
        }
    }
    return values;
}

std::string selection(const X11Connection& connection) {
    return "_XSETTINGS_S" + std::to_string(connection.screenNumber());
}

xcb_window_t owner(const X11Connection& connection) {
    return selectionOwner(connection.get(), connection.atom(selection(connection)));
}

xdg::DesktopSettings read(const X11Connection& connection) {
    const xcb_window_t daemon = owner(connection);
    if (daemon == XCB_NONE)
        return {};
    return parse(connection.bytes(daemon, "_XSETTINGS_SETTINGS", "_XSETTINGS_SETTINGS"));
}

}
