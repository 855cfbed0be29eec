/// The program's targets relative to the others.
#pragma once

#include "Peers/Figures.hpp"

#include <ostream>
#include <vector>

namespace vireline::desktop {

/// Writes a Markdown list of the targets with the measured values and whether they are met. Targets
/// whose programs or figures are missing are omitted.
void writeTargets(std::ostream& out, const std::vector<Column>& columns);

/// The same for the program under sway: relative to what it costs under X11, and to what Qt alone
/// costs more under sway.
void writeWaylandTargets(std::ostream& out, const std::vector<Column>& columns);

}
