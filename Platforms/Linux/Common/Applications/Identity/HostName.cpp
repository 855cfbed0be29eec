#include "Applications/Identity/HostName.hpp"

#include <unistd.h>

#include <array>

namespace vireline::xdg::HostName {

std::string read() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}
