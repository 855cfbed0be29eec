/// What a status item shows: a named symbol and its accessible name.
#pragma once

#include <string>

namespace vireline::xdg {

struct StatusSymbol {
    std::string name;
    std::string description;
};

}
