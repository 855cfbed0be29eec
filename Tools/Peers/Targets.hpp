/// What the program promises in comparison with the others.
#pragma once

#include "Peers/Figures.hpp"

#include <ostream>
#include <vector>

namespace vireline::desktop {

/// As a list in Markdown, each with what was measured and whether it holds; only those whose
/// programs and figures are there.
void writeTargets(std::ostream& out, const std::vector<Column>& columns);

}
