#include "App/WaylandWords.hpp"

#include "Platform/Desktop/DesktopWords.hpp"

namespace vireline::wayland::WaylandWords {

void adapt(DesktopWords& words) {
    words.anchorWaits = "Not possible here: under Wayland, no program can hold the pointer back.";
    words.offersAnchor = false;
    words.cannotMoveWindows = "This compositor lets no program move other programs' windows.";
}

}
