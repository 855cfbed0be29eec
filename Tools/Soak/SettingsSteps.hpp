/// Steps of a soak in which the settings change, by hand or behind the program's back.
#pragma once

namespace vireline::desktop {

class SoakWorld;

void changeSize(SoakWorld& world);
void changePosition(SoakWorld& world);
void changeSource(SoakWorld& world);

/// Somebody writes what is no preferences of this program's.
void replacePreferences(SoakWorld& world);
/// One change cannot be saved; the next save brings it along.
void failDisk(SoakWorld& world);
/// With other settings, or with those that it saved: after a power cut these are all there is.
void restart(SoakWorld& world);

}
