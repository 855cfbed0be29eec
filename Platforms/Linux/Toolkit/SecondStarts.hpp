/// Who hears that the program was started once more.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline::x11 {

class SecondStarts {
public:
    virtual ~SecondStarts() = default;

    /// Calls `handler` from the event loop for every further start.
    [[nodiscard]] virtual Subscription observe(std::function<void()> handler) = 0;
};

}
