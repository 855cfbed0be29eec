/// The areas of a dock's window in which it can ignore the pointer's movements.
#pragma once

#include "Panels/PanelPicture.hpp"

#include <QRect>
#include <vector>

namespace vireline::x11::QuietAreas {

/// Divides the window, in its pixels, into areas such that movement within one changes nothing as
/// long as no button is held. Empty if every movement matters.
[[nodiscard]] std::vector<QRect> of(const Scene& scene, const xdg::PanelLayout& layout);

}
