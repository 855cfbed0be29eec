#include "VirtualDesktop/FileDrag.hpp"

#include "Foundation/FileURL.hpp"
#include "VirtualDesktop/Waiting.hpp"

#include <sstream>
#include <stdexcept>

namespace vireline::desktop {

std::string urlList(const std::vector<std::filesystem::path>& files) {
    std::string list;
    for (const auto& file : files)
        list += FileURL::fromPath(file.string()).absoluteString() + "\r\n";
    return list;
}

FileDrag::FileDrag(VirtualDesktop& desktop, const Content& content)
    : desktop_(desktop), record_(desktop.home().scratch() / "drag") {
    const auto file = desktop.home().scratch() / "dragged";
    writeFile(file, content.text);
    std::filesystem::remove(record_);
    program_ =
        &desktop.run(DRAG_SOURCE, {"--form", content.form, "--content", file.string(), "--action",
                                   content.action, "--record", record_.string()});
    const auto needs = [this](std::string_view line) {
        if (!eventually([&] { return readFile(record_).contains(line); }))
            throw std::runtime_error{"the program that one can drag from does not work"};
    };
    needs("shown");
    desktop.pointer().moveTo({20, 20});
    desktop.pointer().press(Pointer::Button::primary);
    needs("began");
}

std::string FileDrag::moveTo(PixelPoint place) {
    // Approaches the place in two steps, so that an earlier answer for it does not count.
    const auto at = [](PixelPoint p) {
        return "at " + std::to_string(p.x) + ',' + std::to_string(p.y) + ' ';
    };
    const PixelPoint nearby{place.x - 1, place.y};
    desktop_.pointer().moveTo(nearby);
    static_cast<void>(recorded(at(nearby)));
    std::filesystem::resize_file(record_, 0);
    desktop_.pointer().moveTo(place);
    return recorded(at(place));
}

std::string FileDrag::drop() {
    std::filesystem::resize_file(record_, 0);
    desktop_.pointer().release(Pointer::Button::primary);
    return recorded("");
}

std::string FileDrag::recorded(std::string_view beginning) const {
    std::string rest;
    static_cast<void>(eventually([&] {
        std::istringstream lines{readFile(record_)};
        for (std::string line; std::getline(lines, line) && !lines.eof();) {
            if (!line.starts_with(beginning))
                continue;
            rest = line.substr(beginning.size());
            return true;
        }
        return false;
    }));
    return rest;
}

}
