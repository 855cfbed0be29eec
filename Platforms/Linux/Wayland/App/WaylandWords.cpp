#include "App/WaylandWords.hpp"

#include "Platform/DesktopWords.hpp"

namespace vireline::wayland::WaylandWords {

void adapt(DesktopWords& words) {
    words.anchorWaits = "Not possible here: under Wayland, no program can hold the pointer back.";
    words.tourWaits = "The anchor is not possible here: under Wayland, no program can hold the "
                      "pointer back.";
    words.cannotMoveWindows = "This compositor lets no program move other programs' windows.";
}

}
