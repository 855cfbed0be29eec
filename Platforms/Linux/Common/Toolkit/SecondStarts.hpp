/// Reports when the program is started while it is already running.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline::xdg {

class SecondStarts {
public:
    virtual ~SecondStarts() = default;

    /// Calls `handler` from the event loop for each further start.
    [[nodiscard]] virtual Subscription observe(std::function<void()> handler) = 0;
};

}
