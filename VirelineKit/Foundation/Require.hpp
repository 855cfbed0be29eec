/// Programming errors stop the program.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <source_location>

namespace vireline {

/// Stops the program with a message that names the broken condition, when it does not hold.
inline void require(bool holds, const char* condition,
                    std::source_location where = std::source_location::current()) {
    if (holds)
        return;
    std::fprintf(stderr, "%s:%u: broken condition: %s\n", where.file_name(), where.line(),
                 condition);
    std::abort();
}

}
