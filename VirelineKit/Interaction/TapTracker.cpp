#include "Interaction/TapTracker.hpp"

namespace vireline {

TapTracker::Resolution TapTracker::registerTap(double time, double threshold) {
    if (lastTap_ && *lastTap_ <= time && time - *lastTap_ < threshold) {
        lastTap_.reset();
        return Resolution::doubled;
    }
    lastTap_ = time;
    return Resolution::single;
}

}
