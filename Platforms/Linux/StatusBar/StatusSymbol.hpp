/// What a status item shows: a named symbol and its name for those who do not see it.
#pragma once

#include <string>

namespace vireline::x11 {

struct StatusSymbol {
    std::string name;
    std::string description;
};

}
