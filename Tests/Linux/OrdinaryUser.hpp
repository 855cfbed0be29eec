/// Makes permissions apply in a test that runs as root.
#pragma once

#include <unistd.h>

#include <cstdlib>

namespace vireline::test {

/// Drops root's privileges for the lifetime of this object.
class OrdinaryUser {
public:
    OrdinaryUser() {
        if (::geteuid() == 0)
            isOther_ = ::seteuid(nobody) == 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    OrdinaryUser(OrdinaryUser&&) = delete;
    OrdinaryUser& operator=(OrdinaryUser&&) = delete;
    ~OrdinaryUser() {
        if (isOther_ && ::seteuid(0) != 0)
            std::abort();
    }

private:
    static constexpr uid_t nobody = 65534;
    bool isOther_ = false;
};

}
