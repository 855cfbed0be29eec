/// Random values for tests, seeded so that every run is the same.
#pragma once

#include <random>

namespace vireline::test {

class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}

    /// Both ends are inclusive.
    [[nodiscard]] int integer(int low, int high) {
        return std::uniform_int_distribution{low, high}(engine_);
    }

    [[nodiscard]] double real(double low, double high) {
        return std::uniform_real_distribution{low, high}(engine_);
    }

    [[nodiscard]] bool boolean() { return integer(0, 1) == 1; }

private:
    std::mt19937 engine_;
};

}
