/// Drag operations, with the system's values.
#pragma once

#include <initializer_list>

namespace vireline::macos::DropOperations {

inline constexpr unsigned long none = 0;
inline constexpr unsigned long copy = 1;
inline constexpr unsigned long link = 2;
inline constexpr unsigned long generic = 4;

/// The operation to report to a source that offers these. Never one that makes the source delete
/// the dropped files, since this program moves them to the Trash itself.
[[nodiscard]] constexpr unsigned long chosen(unsigned long offered) {
    for (const unsigned long operation : {copy, generic, link}) {
        if ((offered & operation) != 0)
            return operation;
    }
    return none;
}

}
