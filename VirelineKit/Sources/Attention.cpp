#include "Sources/Attention.hpp"

namespace vireline::Attention {

State next(const State& before, const Facts& now) {
    State after{.asking = now.asking, .marked = before.marked};
    for (const std::string& app : now.asking) {
        if (!before.asking.contains(app))
            after.marked.insert(app);
    }
    if (now.active)
        after.marked.erase(*now.active);
    std::erase_if(after.marked, [&](const std::string& app) { return !now.present.contains(app); });
    return after;
}

}
