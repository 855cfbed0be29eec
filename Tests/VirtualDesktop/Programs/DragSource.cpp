/// A program with a window from which files can be dragged, like a file manager's: it grabs the
/// pointer, finds the window under it that accepts drags, and communicates with that window.
#include "VirtualDesktop/DragSource.hpp"

#include "VirtualDesktop/Screen/PixelGeometry.hpp"
#include "VirtualDesktop/Session/Home.hpp"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {
namespace {

struct Options {
    /// The content's format, and the file that contains it.
    std::string form = "text/uri-list";
    std::string content;
    std::string action = "XdndActionCopy";
    std::string record;
};

Options parse(const std::vector<std::string>& arguments) {
    Options options;
    const std::map<std::string, std::string*> settings{{"--form", &options.form},
                                                       {"--content", &options.content},
                                                       {"--action", &options.action},
                                                       {"--record", &options.record}};
    for (std::size_t i = 0; i + 1 < arguments.size(); i += 2)
        *settings.at(arguments[i]) = arguments[i + 1];
    return options;
}

class Program {
public:
    Program(const Options& options, const std::string& display)
        : options_(options), client_(display), source_(display) {
        source_.contents[options.form] = readFile(options.content);
        show();
    }

    /// Runs until the X server exits.
    void run() {
        std::array<pollfd, 2> readable{
            {{xcb_get_file_descriptor(client_.get()), POLLIN, 0},
             {xcb_get_file_descriptor(source_.client().get()), POLLIN, 0}}};
        while (xcb_connection_has_error(client_.get()) == 0) {
            // Events that were read along with a reply are queued in memory, where poll does not
            // see them.
            if (!handleEvents() && !source_.work() && !goOn())
                poll(readable.data(), readable.size(), -1);
        }
    }

private:
    void show() {
        const xcb_window_t window = client_.createWindow({0, 0, 100, 60}, 0x00c0d0e0);
        const std::array<std::uint32_t, 2> attributes{1, XCB_EVENT_MASK_BUTTON_PRESS |
                                                             XCB_EVENT_MASK_BUTTON_RELEASE |
                                                             XCB_EVENT_MASK_BUTTON_MOTION};
        xcb_change_window_attributes(
            client_.get(), window, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, attributes.data());
        client_.map(window);
        client_.sync();
        record("shown");
    }

    /// Returns whether there were any.
    bool handleEvents() {
        bool hasHandled = false;
        while (const auto event = client_.pollEvent()) {
            handle(*event);
            hasHandled = true;
        }
        return hasHandled;
    }

    void handle(const xcb_generic_event_t& event) {
        switch (eventType(event)) {
        case XCB_BUTTON_PRESS:
            source_.own(as<xcb_button_press_event_t>(event).time);
            isDragging_ = true;
            told_.reset();
            record("began");
            break;
        case XCB_MOTION_NOTIFY: {
            const auto& motion = as<xcb_motion_notify_event_t>(event);
            pointer_ = PixelPoint{motion.root_x, motion.root_y};
            break;
        }
        case XCB_BUTTON_RELEASE:
            isReleased_ = true;
            break;
        default:
            break;
        }
    }

    /// Performs the next step, unless the target has yet to reply; returns whether there was one.
    bool goOn() {
        hearAnswers();
        if (!isDragging_ || waits_)
            return false;
        if (pointer_ && pointer_ != told_)
            tell(*pointer_);
        else if (isReleased_)
            end();
        else
            return false;
        return true;
    }

    void hearAnswers() {
        for (const auto& status : source_.takeStatuses()) {
            waits_ = false;
            accepted_ = status.accepts;
            record("at " + std::to_string(told_->x) + ',' + std::to_string(told_->y) +
                   (status.accepts ? " accepted " + status.action : " refused"));
        }
        if (!source_.finished)
            return;
        record(source_.finished->accepts ? "done " + source_.finished->action : "not done");
        source_.finished.reset();
        isDragging_ = false;
        waits_ = false;
    }

    void tell(PixelPoint place) {
        told_ = place;
        const xcb_window_t target = targetAt(place);
        if (target != target_) {
            if (target_ != XCB_NONE)
                source_.leave();
            target_ = target;
            accepted_ = false;
            if (target_ != XCB_NONE)
                source_.enter(target_);
        }
        if (target_ == XCB_NONE)
            return record("at " + std::to_string(place.x) + ',' + std::to_string(place.y) +
                          " no-target");
        waits_ = true;
        source_.move(place, options_.action);
    }

    void end() {
        isReleased_ = false;
        if (accepted_) {
            waits_ = true;
            return source_.drop();
        }
        if (target_ != XCB_NONE)
            source_.leave();
        target_ = XCB_NONE;
        isDragging_ = false;
        record("not dropped");
    }

    /// The bottommost window there that announces that it accepts drags.
    [[nodiscard]] xcb_window_t targetAt(PixelPoint place) const {
        const auto windows = client_.windowsAt(place);
        const auto target =
            std::find_if(windows.rbegin(), windows.rend(), [&](xcb_window_t window) {
                return client_.hasProperty(window, "XdndAware");
            });
        return target == windows.rend() ? xcb_window_t{XCB_NONE} : *target;
    }

    void record(const std::string& line) const {
        std::ofstream{options_.record, std::ios::app} << line << '\n';
    }

    Options options_;
    XClient client_;
    DragSource source_;
    bool isDragging_ = false;
    bool isReleased_ = false;
    /// The pointer's position, and the position that the target was last told.
    std::optional<PixelPoint> pointer_;
    std::optional<PixelPoint> told_;
    xcb_window_t target_ = XCB_NONE;
    bool waits_ = false;
    bool accepted_ = false;
};

}
}

int main(int count, char** arguments) {
    try {
        const char* display = std::getenv("DISPLAY");
        vireline::desktop::Program program{
            vireline::desktop::parse({arguments + 1, arguments + count}),
            display == nullptr ? "" : display};
        program.run();
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
