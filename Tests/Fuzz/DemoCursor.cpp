/// Fuzzes VIRELINE_DEMO_CURSOR, and the magnification of a dock at the resulting position.
#include "Views/Input/DemoCursor.hpp"

#include "Foundation/Require.hpp"
#include "Fuzz/FuzzTarget.hpp"
#include "Layout/DockMagnifier.hpp"

#include <array>
#include <cmath>

namespace vireline {
namespace {

void magnifyAt(double cursor) {
    constexpr double iconSize = 44;
    constexpr double magnification = 2;
    constexpr std::array<double, 4> centers{22, 70, 118, 166};
    const auto scales =
        DockMagnifier::scales(centers, cursor, magnification, DockMagnifier::radius(iconSize));
    for (const double scale : scales)
        require(scale >= 1 && scale <= magnification, "a tile's scale is within its bounds");
    const auto packed = DockMagnifier::packedCenters(centers, scales, iconSize);
    const double length = DockMagnifier::packedLength(packed, scales, iconSize);
    const double shift = DockMagnifier::anchoredShift(centers, packed, {188, length, 400}, cursor);
    require(std::isfinite(shift), "the strip stands somewhere");
}

}
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto fraction = vireline::demoCursorFraction(vireline::fuzz::text(data, size));
    if (!fraction)
        return 0;
    vireline::require(std::isfinite(*fraction), "a fraction is a number");
    vireline::magnifyAt(*fraction * 400);
    return 0;
}
