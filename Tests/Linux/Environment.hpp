/// Sets an environment variable for the duration of a test.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <cstdlib>
#include <optional>
#include <string>

namespace vireline::test {

class EnvironmentVariable : private NonCopyable {
public:
    /// Unsets the variable if `value` is nullopt.
    EnvironmentVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* before = std::getenv(name))
            before_ = before;
        set(value);
    }
    ~EnvironmentVariable() { set(before_); }

private:
    void set(const std::optional<std::string>& value) const {
        if (value)
            ::setenv(name_, value->c_str(), 1);
        else
            ::unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> before_;
};

}
