/// Lets the n-th fallible call of a platform's ports fail, so that a test can have every call fail
/// in turn.
#pragma once

#include "Foundation/Result.hpp"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace vireline::test {

/// What a call answers when it fails, by the type of its answer. A type that is not here cannot
/// fail.
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
    /// As the error of a call that fails.
    static constexpr int code = 5;
    static constexpr std::string_view description = "injected failure";

    /// The call with this number fails, counted from 1 from now on; none with 0.
    void failCall(int number) {
        doomed_ = number;
        calls_ = 0;
        failed_.reset();
    }

    /// Fallible calls so far.
    [[nodiscard]] int calls() const noexcept { return calls_; }

    /// The names of all fallible calls so far.
    [[nodiscard]] const std::set<std::string, std::less<>>& names() const noexcept {
        return names_;
    }

    /// The call that failed, such as "FileSystem::read"; nothing while none has.
    [[nodiscard]] const std::optional<std::string>& failed() const noexcept { return failed_; }

    /// Makes the call, or has it fail without a trace.
    template <class Call>
    auto operator()(std::string_view name, Call call) -> decltype(call()) {
        using Answer = decltype(call());
        names_.emplace(name);
        if (++calls_ != doomed_)
            return call();
        failed_ = name;
        return Failure<Answer>::answer({code, std::string{description}});
    }

private:
    int doomed_ = 0;
    int calls_ = 0;
    std::set<std::string, std::less<>> names_;
    std::optional<std::string> failed_;
};

}
