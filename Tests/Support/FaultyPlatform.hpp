/// A platform whose calls can be made to fail. All calls with a fallible result go through
/// `Faults`; ports without any are the underlying platform's own.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Platform/Platform.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/Faults.hpp"

#include <memory>

namespace vireline::test {

class FaultyPorts : private NonCopyable {
public:
    FaultyPorts(const Platform& behind, Faults& faults);
    ~FaultyPorts();

    [[nodiscard]] Platform ports();

private:
    struct Ports;

    Platform behind_;
    std::unique_ptr<Ports> ports_;
};

/// The fake platform, wrapped in fallible ports.
class FaultyPlatform {
public:
    [[nodiscard]] Platform ports() { return ports_.ports(); }

    FakePlatform fake;
    Faults faults;

private:
    FaultyPorts ports_{fake.ports(), faults};
};

}
