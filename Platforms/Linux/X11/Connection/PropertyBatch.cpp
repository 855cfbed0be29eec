#include "Connection/PropertyBatch.hpp"

namespace vireline::x11 {

PropertyBatch::~PropertyBatch() {
    for (std::size_t i = replies_.size(); i < cookies_.size(); ++i)
        xcb_discard_reply(server_, cookies_[i].sequence);
}

std::size_t PropertyBatch::ask(xcb_window_t window, std::string_view property,
                               std::size_t maximumBytes) {
    const auto units = static_cast<std::uint32_t>((maximumBytes + 3) / 4);
    cookies_.push_back(xcb_get_property(server_, 0, window, connection_.atom(property),
                                        XCB_GET_PROPERTY_TYPE_ANY, 0, units));
    return cookies_.size() - 1;
}

std::span<const std::uint32_t> PropertyBatch::items(std::size_t request, xcb_atom_t type) {
    const auto* answer = reply(request);
    if (answer == nullptr || answer->type != type || answer->format != 32)
        return {};
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(answer));
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(answer)), length / 4};
}

std::optional<std::uint32_t> PropertyBatch::firstItem(std::size_t request, xcb_atom_t type) {
    const auto found = items(request, type);
    return found.empty() ? std::nullopt : std::optional{found.front()};
}

std::string_view PropertyBatch::bytes(std::size_t request) {
    const auto* answer = reply(request);
    if (answer == nullptr || answer->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(answer)),
            static_cast<std::size_t>(xcb_get_property_value_length(answer))};
}

bool PropertyBatch::hasWindow(std::size_t request) {
    return reply(request) != nullptr;
}

const xcb_get_property_reply_t* PropertyBatch::reply(std::size_t request) {
    while (replies_.size() <= request) {
        const auto cookie = cookies_[replies_.size()];
        if (side_ != nullptr)
            replies_.push_back(side_->reply<xcb_get_property_reply_t>(cookie, deadline_));
        else
            replies_.emplace_back(xcb_get_property_reply(server_, cookie, nullptr));
    }
    return replies_[request].get();
}

}
