/// Makes the n-th fallible call of a platform's ports fail, so that a test can make every call fail
/// in turn.
#pragma once

#include "Foundation/Result.hpp"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace vireline::test {

/// The result of a failed call, by its type. Calls with other result types cannot fail.
template <class T>
struct Failure;

template <class T>
struct Failure<Result<T>> {
    static Result<T> answer(const PlatformError& error) { return std::unexpected{error}; }
};

template <class T>
struct Failure<std::optional<T>> {
    static std::optional<T> answer(const PlatformError&) { return std::nullopt; }
};

template <class T>
struct Failure<std::shared_ptr<T>> {
    static std::shared_ptr<T> answer(const PlatformError&) { return nullptr; }
};

template <>
struct Failure<bool> {
    static bool answer(const PlatformError&) { return false; }
};

class Faults {
public:
    /// The error code of failed calls.
    static constexpr int code = 5;
    static constexpr std::string_view description = "injected failure";

    /// Makes the call with this number fail, counted from 1 from now on; 0 for none.
    void failCall(int number) {
        failingName_.clear();
        failingCall_ = number;
        calls_ = 0;
        failed_.reset();
    }

    /// Makes the first call with this name fail from now on.
    void failFirst(std::string name) {
        failCall(0);
        failingName_ = std::move(name);
    }

    /// The number of fallible calls so far.
    [[nodiscard]] int calls() const noexcept { return calls_; }

    /// The names of all fallible calls so far.
    [[nodiscard]] const std::set<std::string, std::less<>>& names() const noexcept {
        return names_;
    }

    /// The call that failed, such as "FileSystem::read"; nullopt while none has.
    [[nodiscard]] const std::optional<std::string>& failed() const noexcept { return failed_; }

    /// Makes the call, or returns a failure without making it.
    template <class Call>
    auto operator()(std::string_view name, Call call) -> decltype(call()) {
        using Answer = decltype(call());
        names_.emplace(name);
        ++calls_;
        if (calls_ != failingCall_ && name != failingName_)
            return call();
        failed_ = name;
        failingName_.clear();
        return Failure<Answer>::answer({code, std::string{description}});
    }

private:
    int failingCall_ = 0;
    /// Empty for none.
    std::string failingName_;
    int calls_ = 0;
    std::set<std::string, std::less<>> names_;
    std::optional<std::string> failed_;
};

}
