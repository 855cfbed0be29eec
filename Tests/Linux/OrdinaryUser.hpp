/// Makes permissions apply in a test that runs as root.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <unistd.h>

#include <cstdlib>

namespace vireline::test {

/// Drops root's privileges for the lifetime of this object.
class OrdinaryUser : private NonCopyable {
public:
    OrdinaryUser() {
        if (::geteuid() == 0)
            isOther_ = ::seteuid(nobody) == 0;
    }
    ~OrdinaryUser() {
        if (isOther_ && ::seteuid(0) != 0)
            std::abort();
    }

private:
    static constexpr uid_t nobody = 65534;
    bool isOther_ = false;
};

}
