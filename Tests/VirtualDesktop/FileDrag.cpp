#include "VirtualDesktop/FileDrag.hpp"

#include "Foundation/FileURL.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <sstream>
#include <stdexcept>

namespace vireline::desktop {
namespace {

constexpr const char* copy = "XdndActionCopy";

}

std::string urlList(const std::vector<std::filesystem::path>& files) {
    std::string list;
    for (const auto& file : files)
        list += FileURL::fromPath(file.string()).absoluteString() + "\r\n";
    return list;
}

FileDrag::FileDrag(VirtualDesktop& desktop, const Content& content)
    : desktop_(desktop), record_(desktop.home().scratch() / "drag.log") {
    const auto file = desktop.home().scratch() / "dragged";
    writeFile(file, content.text);
    std::filesystem::remove(record_);
    const PixelPoint place =
        desktop.isWayland() ? showPanel(content, file) : showWindow(content, file);
    desktop.pointer().moveTo(place);
    desktop.pointer().press(Pointer::Button::primary);
    require("began");
}

void FileDrag::require(std::string_view line) const {
    if (!eventually([&] { return readFile(record_).contains(line); }))
        throw std::runtime_error{"the program that one can drag from does not work"};
}

PixelPoint FileDrag::showWindow(const Content& content, const std::string& file) {
    program_ = &desktop_.run(DRAG_SOURCE, {"--form", content.form, "--content", file, "--action",
                                           content.action, "--record", record_.string()});
    require("shown");
    return {20, 20};
}

/// Drags cannot leave the output on which they begin: the X server reports the pointer to the
/// window of that output for as long as a button is held. The last monitor has a dock.
PixelPoint FileDrag::showPanel(const Content& content, const std::string& file) {
    constexpr int thickness = 40;
    const Monitor& monitor = desktop_.displays().monitors.back();
    program_ = &desktop_.runPanel({monitor.name, Edge::top, thickness},
                                  {content.form, file, record_.string()});
    require("shown");
    return panelFrame(monitor, Edge::top, thickness).center();
}

std::string FileDrag::moveTo(PixelPoint place) {
    // Approaches the place in two steps, so that an earlier answer for it does not count.
    const auto at = [](PixelPoint p) {
        return "at " + std::to_string(p.x) + ',' + std::to_string(p.y) + ' ';
    };
    const PixelPoint nearby{place.x - 1, place.y};
    if (desktop_.isWayland()) {
        std::filesystem::resize_file(record_, 0);
        desktop_.pointer().moveTo(nearby);
        desktop_.pointer().moveTo(place);
        const std::string answer = recorded("answer ");
        return answer == "accepted" ? answer + ' ' + copy : answer;
    }
    desktop_.pointer().moveTo(nearby);
    static_cast<void>(recorded(at(nearby)));
    std::filesystem::resize_file(record_, 0);
    desktop_.pointer().moveTo(place);
    return recorded(at(place));
}

bool FileDrag::moveAway(PixelPoint place) {
    if (!desktop_.isWayland())
        return moveTo(place) == "no-target";
    desktop_.pointer().moveTo(place);
    return true;
}

std::string FileDrag::drop() {
    std::filesystem::resize_file(record_, 0);
    desktop_.pointer().release(Pointer::Button::primary);
    if (!desktop_.isWayland())
        return recorded("");
    const std::string outcome = recorded("end ");
    return outcome == "done" ? outcome + ' ' + copy : outcome;
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
