/// What a status item shows: a named symbol and its accessible name.
#pragma once

#include <string>

namespace vireline::x11 {

struct StatusSymbol {
    std::string name;
    std::string description;
};

}
