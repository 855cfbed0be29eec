#include "Settings/Settings.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace vireline {
namespace {

using SourceModeName = std::pair<SourceMode, std::string_view>;

constexpr std::array sourceModes{
    SourceModeName{SourceMode::mirror, "mirror"},
    SourceModeName{SourceMode::manual, "manual"},
};

}

std::string_view rawValue(SourceMode mode) noexcept {
    return std::ranges::find(sourceModes, mode, &SourceModeName::first)->second;
}

std::string_view rawValue(DockPosition position) noexcept {
    return traitsOf(position).name;
}

std::optional<SourceMode> sourceMode(std::string_view rawValue) noexcept {
    const auto* row = std::ranges::find(sourceModes, rawValue, &SourceModeName::second);
    return row == sourceModes.end() ? std::nullopt : std::optional{row->first};
}

std::optional<DockPosition> dockPosition(std::string_view rawValue) noexcept {
    const auto* row = std::ranges::find(dockPositions, rawValue, &DockPositionTraits::name);
    return row == dockPositions.end() ? std::nullopt : std::optional{row->position};
}

}
