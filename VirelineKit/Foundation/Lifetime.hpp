/// Disables callbacks once the object that they call into is gone.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <concepts>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace vireline {

/// A member of an object that hands out callbacks. It should be the last member, so that it is
/// destroyed first.
class Lifetime : private NonCopyable {
public:
    /// Wraps `function` so that calls do nothing once this object is gone. What is returned takes
    /// only what `function` takes, because Qt asks of a callable whether it takes other arguments.
    template <class Function>
    [[nodiscard]] auto guard(Function function) const {
        return [weak = std::weak_ptr{token_},
                function = std::move(function)]<class... Arguments>(Arguments&&... arguments)
            requires std::invocable<const Function&, Arguments...>
        {
            static_assert(std::is_void_v<std::invoke_result_t<const Function&, Arguments...>>,
                          "a result needs guardOr");
            if (!weak.expired())
                std::invoke(function, std::forward<Arguments>(arguments)...);
        };
    }

    /// Wraps `function` so that calls return `fallback` once this object is gone.
    template <class Function, class Fallback>
    [[nodiscard]] auto guardOr(Fallback fallback, Function function) const {
        return [weak = std::weak_ptr{token_}, function = std::move(function),
                fallback =
                    std::move(fallback)]<class... Arguments>(Arguments&&... arguments) -> Fallback
                   requires std::invocable<const Function&, Arguments...>
        {
            if (weak.expired())
                return fallback;
            return std::invoke(function, std::forward<Arguments>(arguments)...);
        };
    }

private:
    std::shared_ptr<char> token_ = std::make_shared<char>();
};

}
