/// Assertions, in release builds too.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <source_location>

namespace vireline {

/// Aborts with a message that names the condition, unless it holds.
inline void require(bool holds, const char* condition,
                    std::source_location where = std::source_location::current()) {
    if (holds)
        return;
    std::fprintf(stderr, "%s:%u: broken condition: %s\n", where.file_name(), where.line(),
                 condition);
    std::abort();
}

}
