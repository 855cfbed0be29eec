/// Soak steps that change the settings, through the window or behind the program's back.
#pragma once

namespace vireline::desktop {

class SoakWorld;

void changeSize(SoakWorld& world);
void changePosition(SoakWorld& world);
void changeSource(SoakWorld& world);

/// Replaces the preferences file with something that is not valid.
void replacePreferences(SoakWorld& world);
/// Makes one save fail; the next save includes the change.
void failDisk(SoakWorld& world);
/// Restarts the program with other settings, or with those it saved, which are all that is left
/// after a power failure.
void restart(SoakWorld& world);

}
