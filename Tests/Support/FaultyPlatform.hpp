/// The fake platform behind ports whose calls can be made to fail. Every call whose answer has a
/// way to say no passes through `faults`; the ports that have none are the fake's own.
#pragma once

#include "Support/FakePlatform.hpp"
#include "Support/Faults.hpp"

#include <memory>

namespace vireline::test {

class FaultyPlatform {
public:
    FaultyPlatform();
    FaultyPlatform(const FaultyPlatform&) = delete;
    FaultyPlatform& operator=(const FaultyPlatform&) = delete;
    FaultyPlatform(FaultyPlatform&&) = delete;
    FaultyPlatform& operator=(FaultyPlatform&&) = delete;
    ~FaultyPlatform();

    [[nodiscard]] Platform ports();

    FakePlatform fake;
    Faults faults;

private:
    struct Ports;

    std::unique_ptr<Ports> ports_;
};

}
