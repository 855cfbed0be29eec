/// The state of a panel that its view observes.
#pragma once

#include "Foundation/Observable.hpp"

namespace vireline {

struct PanelUIState {
    Observable<bool> collapsed{false};
};

}
