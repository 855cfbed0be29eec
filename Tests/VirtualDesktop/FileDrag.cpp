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
    const std::vector<std::string> arguments{"--form",       content.form, "--action",
                                             content.action, "--record",   record_.string()};
    if (desktop.isWayland())
        showOnWayland(arguments, file);
    else
        show(arguments, file);
    desktop.pointer().press(Pointer::Button::primary);
    require("began");
}

void FileDrag::show(std::vector<std::string> arguments, const std::filesystem::path& file) {
    arguments.insert(arguments.end(), {"--content", file.string()});
    program_ = &desktop_.run(DRAG_SOURCE, std::move(arguments));
    require("shown");
    desktop_.pointer().moveTo({20, 20});
}

void FileDrag::showOnWayland(std::vector<std::string> arguments,
                             const std::filesystem::path& file) {
    // A pinned app, so that it adds no tile.
    const App source{"org.example.Alpha", "Alpha", {}, {}};
    // The pointer cannot leave the window of an output while a button is held.
    const auto& display = desktop_.displays().monitors.back().frame;
    const auto corner = std::to_string(display.x) + ',' + std::to_string(display.y);
    arguments.insert(arguments.end(),
                     {"--drag", file.string(), "--size", "100x60", "--at", corner});
    program_ = &desktop_.launch(source, std::move(arguments));
    if (!eventually([&] {
            const auto windows = desktop_.visibleWindowsOf(source);
            const auto frame = windows.empty() ? std::nullopt : desktop_.frameOf(windows.front());
            return frame && frame->x == display.x && frame->y == display.y;
        }))
        throw std::runtime_error{"the program that one can drag from does not show itself"};
    desktop_.pointer().moveTo({display.x + 20, display.y + 20});
}

void FileDrag::require(std::string_view line) const {
    if (!eventually([&] { return readFile(record_).contains(line); }))
        throw std::runtime_error{"the program that one can drag from does not work"};
}

std::string FileDrag::moveTo(PixelPoint place) {
    // Approaches the place in two steps, so that an earlier answer for it does not count.
    const auto at = [](PixelPoint p) {
        return "at " + std::to_string(p.x) + ',' + std::to_string(p.y) + ' ';
    };
    const PixelPoint nearby{place.x - 1, place.y};
    desktop_.pointer().moveTo(nearby);
    if (desktop_.isWayland()) {
        desktop_.pointer().moveTo(place);
        return recorded("answer ");
    }
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
