#include "Input/DragDevice.hpp"

#include "Connection/WaylandConnection.hpp"
#include "Input/SurfaceInput.hpp"

#include <wayland-client.h>

#include <utility>

namespace vireline::wayland {
namespace {

/// The first version in which drags have actions.
constexpr std::uint32_t dragVersion = 3;

}

struct DragDevice::Events {
    static DragDevice& device(void* data) { return *static_cast<DragDevice*>(data); }

    static void offered(void* data, wl_data_device* /*device*/, wl_data_offer* offer) {
        device(data).announced_ = std::make_unique<DragOffer>(Proxy<wl_data_offer>{offer});
    }
    static void enter(void* data, wl_data_device* /*device*/, std::uint32_t serial,
                      wl_surface* surface, wl_fixed_t x, wl_fixed_t y, wl_data_offer* offer) {
        device(data).enter(serial, surface, {wl_fixed_to_double(x), wl_fixed_to_double(y)}, offer);
    }
    static void leave(void* data, wl_data_device* /*device*/) { device(data).leave(); }
    static void motion(void* data, wl_data_device* /*device*/, std::uint32_t /*time*/, wl_fixed_t x,
                       wl_fixed_t y) {
        auto& self = device(data);
        if (!self.drag_)
            return;
        self.drag_->position = {wl_fixed_to_double(x), wl_fixed_to_double(y)};
        self.answer();
    }
    static void drop(void* data, wl_data_device* /*device*/) { device(data).drop(); }
    /// Docks do not use the clipboard.
    static void selection(void* data, wl_data_device* /*device*/, wl_data_offer* /*offer*/) {
        device(data).announced_.reset();
    }

    static constexpr wl_data_device_listener listener{.data_offer = offered,
                                                      .enter = enter,
                                                      .leave = leave,
                                                      .motion = motion,
                                                      .drop = drop,
                                                      .selection = selection};
};

std::unique_ptr<DragDevice> DragDevice::create(const WaylandConnection& connection, wl_seat& seat,
                                               const InputSurfaces& surfaces) {
    auto manager =
        connection.bind<wl_data_device_manager>(wl_data_device_manager_interface, dragVersion);
    const bool hasActions =
        manager && wl_data_device_manager_get_version(manager.get()) >= dragVersion;
    return hasActions ? std::make_unique<DragDevice>(connection, std::move(manager), seat, surfaces)
                      : nullptr;
}

DragDevice::DragDevice(const WaylandConnection& connection, Proxy<wl_data_device_manager> manager,
                       wl_seat& seat, const InputSurfaces& surfaces)
    : connection_(connection)
    , surfaces_(surfaces)
    , manager_(std::move(manager))
    , device_(wl_data_device_manager_get_data_device(manager_.get(), &seat)) {
    wl_data_device_add_listener(device_.get(), &Events::listener, this);
}

/// A drag ends with the seat.
DragDevice::~DragDevice() {
    leave();
}

SurfaceInput* DragDevice::target() const {
    return drag_ ? surfaces_.find(drag_->surface) : nullptr;
}

void DragDevice::enter(std::uint32_t serial, wl_surface* surface, QPointF at,
                       wl_data_offer* offered) {
    leave();
    if (!announced_ || announced_->get() != offered)
        return;
    auto& drag = drag_.emplace(Drag{.offer = std::exchange(announced_, nullptr),
                                    .surface = surface,
                                    .serial = serial,
                                    .position = at});
    if (!drag.offer->isReadable())
        return answer();
    drag.files = Files::beingRead;
    drag.offer->read([this](const std::vector<std::string>& urls) { introduce(urls); });
}

void DragDevice::introduce(const std::vector<std::string>& urls) {
    if (!drag_)
        return;
    SurfaceInput* const entered = target();
    drag_->files = entered == nullptr || urls.empty() ? Files::none : Files::known;
    if (drag_->files == Files::known)
        entered->dragEntered(urls);
    answer();
    // The files have not arrived on the connection, which would be flushed then.
    connection_.flush();
}

void DragDevice::answer() {
    if (!drag_ || drag_->files == Files::beingRead)
        return;
    SurfaceInput* const under = target();
    drag_->canDrop =
        drag_->files == Files::known && under != nullptr && under->dragMoved(drag_->position);
    drag_->offer->answer(drag_->serial, drag_->canDrop);
}

void DragDevice::leave() {
    SurfaceInput* const left = target();
    const auto drag = std::exchange(drag_, std::nullopt);
    if (drag && drag->files == Files::known && left != nullptr)
        left->dragLeft();
}

/// Compositors report only drops that have been allowed.
void DragDevice::drop() {
    SurfaceInput* const under = target();
    if (!drag_ || !drag_->canDrop || under == nullptr)
        return leave();
    const Drag drag = std::move(*drag_);
    drag_.reset();
    if (under->dragDropped(drag.position))
        drag.offer->finish();
}

}
