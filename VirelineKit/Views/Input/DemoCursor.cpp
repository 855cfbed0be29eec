#include "Views/Input/DemoCursor.hpp"

#include <algorithm>
#include <locale>
#include <sstream>
#include <string>

namespace vireline {

std::optional<double> demoCursorFraction(std::string_view text) {
    // A stream would also accept blanks, hexadecimal numbers and infinities.
    const bool isPlain = std::ranges::all_of(
        text, [](char c) { return std::string_view{"0123456789+-.eE"}.contains(c); });
    if (text.empty() || !isPlain)
        return std::nullopt;
    std::istringstream stream{std::string{text}};
    stream.imbue(std::locale::classic());
    double fraction = 0;
    stream >> fraction;
    if (stream.fail() || stream.peek() != std::istringstream::traits_type::eof()) {
        return std::nullopt;
    }
    return fraction;
}

}
