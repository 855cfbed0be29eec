/// Measures what the window features cost: the guard a pointer that moves, a summon the user's
/// time.
#pragma once

namespace vireline::desktop {

/// Reports all of its figures. Throws when the program does not get to what is measured.
void measureWindows();

}
