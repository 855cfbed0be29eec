/// Ties callbacks to the life of the object that they call into.
#pragma once

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace vireline {

/// A member of an object, best its last, whose callbacks may be stored by others.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;
    Lifetime(Lifetime&&) = delete;
    Lifetime& operator=(Lifetime&&) = delete;
    ~Lifetime() = default;

    /// `function` for as long as this lives; afterwards a call does nothing.
    template <class Function>
    [[nodiscard]] auto guard(Function function) const {
        return [weak = std::weak_ptr{token_},
                function = std::move(function)]<class... Arguments>(Arguments&&... arguments) {
            static_assert(std::is_void_v<std::invoke_result_t<const Function&, Arguments...>>,
                          "a result needs guardOr");
            if (!weak.expired())
                std::invoke(function, std::forward<Arguments>(arguments)...);
        };
    }

    /// `function` for as long as this lives; afterwards a call returns `fallback`.
    template <class Function, class Fallback>
    [[nodiscard]] auto guardOr(Fallback fallback, Function function) const {
        return [weak = std::weak_ptr{token_}, function = std::move(function),
                fallback =
                    std::move(fallback)]<class... Arguments>(Arguments&&... arguments) -> Fallback {
            if (weak.expired())
                return fallback;
            return std::invoke(function, std::forward<Arguments>(arguments)...);
        };
    }

private:
    std::shared_ptr<char> token_ = std::make_shared<char>();
};

}
