/// Drags from other programs over surfaces of ours.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Input/DragOffer.hpp"
#include "Input/InputSurfaces.hpp"

#include <QPointF>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {

class WaylandConnection;

class DragDevice : private NonCopyable {
public:
    /// Null if the compositor knows no drags. The others must outlive the result.
    [[nodiscard]] static std::unique_ptr<DragDevice>
    create(const WaylandConnection& connection, wl_seat& seat, const InputSurfaces& surfaces);

    DragDevice(const WaylandConnection& connection, Proxy<wl_data_device_manager> manager,
               wl_seat& seat, const InputSurfaces& surfaces);
    ~DragDevice();

private:
    struct Events;
    enum class Files {
        none,
        /// Whether there are any is not known yet.
        beingRead,
        /// The surface has been given them.
        known,
    };
    /// A drag over a surface of ours.
    struct Drag {
        std::unique_ptr<DragOffer> offer;
        wl_surface* surface = nullptr;
        std::uint32_t serial = 0;
        QPointF position;
        Files files = Files::none;
        bool canDrop = false;
    };

    void enter(std::uint32_t serial, wl_surface* surface, QPointF at, wl_data_offer* offered);
    void introduce(const std::vector<std::string>& urls);
    /// Tells the source whether it can drop there. Nothing is told before the files are known:
    /// until then there is no drop anyway, and a source would show a refusal for a moment.
    void answer();
    void leave();
    void drop();
    [[nodiscard]] SurfaceInput* target() const;

    const WaylandConnection& connection_;
    const InputSurfaces& surfaces_;
    Proxy<wl_data_device_manager> manager_;
    Proxy<wl_data_device> device_;
    /// Announced, but neither dragged over a surface of ours nor put on the clipboard yet.
    std::unique_ptr<DragOffer> announced_;
    std::optional<Drag> drag_;
};

}
