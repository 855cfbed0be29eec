/// Lets the n-th fallible call of a platform's ports fail, so that a test can have every call fail
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
        doomedName_.clear();
        doomed_ = number;
        calls_ = 0;
        failed_.reset();
    }

    /// The first call of that name from now on fails.
    void failFirst(std::string name) {
        failCall(0);
        doomedName_ = std::move(name);
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
        ++calls_;
        if (calls_ != doomed_ && name != doomedName_)
            return call();
        failed_ = name;
        doomedName_.clear();
        return Failure<Answer>::answer({code, std::string{description}});
    }

private:
    int doomed_ = 0;
    /// Of no call when it is empty.
    std::string doomedName_;
    int calls_ = 0;
    std::set<std::string, std::less<>> names_;
    std::optional<std::string> failed_;
};

}
