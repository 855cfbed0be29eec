/// The words for what is different under Wayland.
#pragma once

namespace vireline {
struct DesktopWords;
}

namespace vireline::wayland::WaylandWords {

void adapt(DesktopWords& words);

}
