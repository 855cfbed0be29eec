/// The error that a port returns if a call fails.
#pragma once

#include <expected>
#include <ostream>
#include <string>

namespace vireline {

struct PlatformError {
    /// The platform's own number for the failure: errno, an Accessibility error, a GIO code.
    int code = 0;
    /// A sentence for the log, in the user's language if the platform translates it.
    std::string description;

    bool operator==(const PlatformError&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const PlatformError& error) {
    return out << error.description << " (" << error.code << ')';
}

template <class T>
using Result = std::expected<T, PlatformError>;

}
