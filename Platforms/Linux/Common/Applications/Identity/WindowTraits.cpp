#include "Applications/Identity/WindowTraits.hpp"

#include "Text/PlainText.hpp"

#include <algorithm>

namespace vireline::xdg {

void WindowTraits::setWMClass(std::string_view bytes) {
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    instance = PlainText::clean(bytes.substr(0, end));
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    className = PlainText::clean(bytes.substr(0, bytes.find('\0')));
}

void WindowTraits::setAppID(std::string_view bytes) {
    className = PlainText::clean(bytes);
    instance = className;
}

}
