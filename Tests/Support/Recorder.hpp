/// Records a callback's arguments.
#pragma once

#include <functional>
#include <vector>

namespace vireline::test {

template <class T>
class Recorder {
public:
    Recorder() = default;
    /// Installs itself as the callback.
    explicit Recorder(std::function<void(const T&)>& slot) {
        slot = [this](const T& value) { values.push_back(value); };
    }

    [[nodiscard]] int count() const { return static_cast<int>(values.size()); }
    [[nodiscard]] const T& last() const { return values.back(); }

    std::vector<T> values;
};

}
