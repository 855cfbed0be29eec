/// What a drop does to what is dragged, in the system's numbers.
#pragma once

#include <initializer_list>

namespace vireline::macos::DropOperations {

inline constexpr unsigned long none = 0;
inline constexpr unsigned long copy = 1;
inline constexpr unsigned long link = 2;
inline constexpr unsigned long generic = 4;

/// The one to name to a source that offers these. Never one after which the source would remove
/// what was dropped: moving to the Trash is the program's own doing.
[[nodiscard]] constexpr unsigned long chosen(unsigned long offered) {
    for (const unsigned long operation : {copy, generic, link}) {
        if ((offered & operation) != 0)
            return operation;
    }
    return none;
}

}
