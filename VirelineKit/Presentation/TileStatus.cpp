#include "Presentation/TileStatus.hpp"

namespace vireline::TileStatuses {

std::string badge(std::int64_t count) {
    constexpr std::int64_t greatest = 99;
    return count > greatest ? std::to_string(greatest) + "+" : std::to_string(count);
}

}
