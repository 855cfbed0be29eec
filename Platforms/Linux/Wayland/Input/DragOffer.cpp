#include "Input/DragOffer.hpp"

#include "Applications/Identity/HostName.hpp"
#include "Connection/EventText.hpp"
#include "Foundation/DevLog.hpp"
#include "Panels/DroppedText.hpp"

#include <fcntl.h>
#include <unistd.h>
#include <wayland-client.h>

#include <algorithm>
#include <bit>
#include <utility>

namespace vireline::wayland {
namespace {

constexpr const auto& knownFormats = xdg::DroppedText::formats;

}

struct DragOffer::Events {
    static void offer(void* data, wl_data_offer* /*offer*/, const char* format) {
        const auto found = std::ranges::find(knownFormats, eventText(format));
        if (found != knownFormats.end())
            static_cast<DragOffer*>(data)->formats_ |= 1U << (found - knownFormats.begin());
    }
    static void possible(void* data, wl_data_offer* /*offer*/, std::uint32_t actions) {
        static_cast<DragOffer*>(data)->possibleActions_ = actions;
    }
    static void action(void* data, wl_data_offer* /*offer*/, std::uint32_t action) {
        static_cast<DragOffer*>(data)->action_ = action;
    }

    static constexpr wl_data_offer_listener listener{
        .offer = offer, .source_actions = possible, .action = action};
};

DragOffer::DragOffer(Proxy<wl_data_offer> offer) : offer_(std::move(offer)) {
    wl_data_offer_add_listener(offer_.get(), &Events::listener, this);
}

DragOffer::~DragOffer() = default;

/// The best format that is offered: `knownFormats` begins with the best.
std::string_view DragOffer::format() const noexcept {
    return formats_ == 0 ? std::string_view{}
                         : knownFormats.at(static_cast<std::size_t>(std::countr_zero(formats_)));
}

void DragOffer::read(std::function<void(std::vector<std::string>)> done) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return done({});
    xdg::FileDescriptor readEnd{ends[0]};
    const xdg::FileDescriptor writeEnd{ends[1]};
    // The other program may expect an ordinary pipe.
    (void)fcntl(writeEnd.get(), F_SETFL, 0);
    wl_data_offer_receive(offer_.get(), std::string{format()}.c_str(), writeEnd.get());
    // The library sends a duplicate of the descriptor.
    reader_ = std::make_unique<PipeReader>(
        std::move(readEnd), [this, done = std::move(done)](const std::optional<std::string>& text) {
            if (!text)
                DevLog::write("drag without files: they did not arrive in time or are too large");
            done(xdg::DroppedText::urls(format(), text.value_or(std::string{}),
                                        xdg::HostName::read()));
        });
}

/// A copy if the source allows it; if it insists on another action, it may have a reason.
std::uint32_t DragOffer::chosenAction() const noexcept {
    static_assert(WL_DATA_DEVICE_MANAGER_DND_ACTION_COPY == 1);
    return possibleActions_ == 0 ? 0U : 1U << std::countr_zero(possibleActions_);
}

void DragOffer::answer(std::uint32_t serial, bool canDrop) {
    wl_data_offer_accept(offer_.get(), serial, canDrop ? std::string{format()}.c_str() : nullptr);
    const std::uint32_t action = canDrop ? chosenAction() : 0;
    wl_data_offer_set_actions(offer_.get(), action, action);
}

/// Without an action, the protocol forbids it.
void DragOffer::finish() {
    if (action_ != 0)
        wl_data_offer_finish(offer_.get());
}

}
