/// What users do, from the first start to quitting, on a platform whose calls may fail.
#pragma once

#include "Support/FaultWorld.hpp"

#include <ostream>
#include <span>

namespace vireline::test {

struct FaultScenario {
    const char* name;
    void (*run)(FaultWorld& world);
    /// The user's actions in it depend on the tiles, and change the list of apps.
    bool editsTheList = false;
};

[[nodiscard]] std::span<const FaultScenario> faultScenarios();

inline std::ostream& operator<<(std::ostream& out, const FaultScenario& scenario) {
    return out << scenario.name;
}

}
