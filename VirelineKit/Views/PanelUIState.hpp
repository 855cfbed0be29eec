/// What a panel tells its views about itself.
#pragma once

#include "Foundation/Observable.hpp"

namespace vireline {

struct PanelUIState {
    Observable<bool> collapsed{false};
};

}
