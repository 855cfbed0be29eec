/// Measures the cost of the window features: the guard's delay of pointer moves, and the time that
/// a summon takes.
#pragma once

namespace vireline::desktop {

/// Prints all figures. Throws if the program does not reach the state to be measured.
void measureWindows();

}
