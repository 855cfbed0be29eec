#include "Settings/Settings.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace vireline {
namespace {

using namespace std::string_view_literals;

constexpr std::array sourceModes{
    std::pair{SourceMode::mirror, "mirror"sv},
    std::pair{SourceMode::manual, "manual"sv},
};

constexpr std::array dockPositions{
    std::pair{DockPosition::bottom, "bottom"sv},
    std::pair{DockPosition::left, "left"sv},
    std::pair{DockPosition::right, "right"sv},
};

template <class Value, std::size_t size>
std::string_view
textOf(Value value, const std::array<std::pair<Value, std::string_view>, size>& table) noexcept {
    const auto* row = std::ranges::find(table, value, &std::pair<Value, std::string_view>::first);
    return row == table.end() ? std::string_view{} : row->second;
}

template <class Value, std::size_t size>
std::optional<Value>
valueOf(std::string_view text,
        const std::array<std::pair<Value, std::string_view>, size>& table) noexcept {
    const auto* row = std::ranges::find(table, text, &std::pair<Value, std::string_view>::second);
    return row == table.end() ? std::nullopt : std::optional{row->first};
}

}

std::string_view rawValue(SourceMode mode) noexcept {
    return textOf(mode, sourceModes);
}

std::string_view rawValue(DockPosition position) noexcept {
    return textOf(position, dockPositions);
}

std::optional<SourceMode> sourceMode(std::string_view rawValue) noexcept {
    return valueOf(rawValue, sourceModes);
}

std::optional<DockPosition> dockPosition(std::string_view rawValue) noexcept {
    return valueOf(rawValue, dockPositions);
}

}
