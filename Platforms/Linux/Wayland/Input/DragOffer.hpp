/// What another program drags: the formats that it offers, its files, and what may be done with
/// them.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Input/PipeReader.hpp"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::wayland {

class DragOffer : private NonCopyable {
public:
    explicit DragOffer(Proxy<wl_data_offer> offer);
    ~DragOffer();

    [[nodiscard]] wl_data_offer* get() const noexcept { return offer_.get(); }

    /// Whether there is a format that may contain files.
    [[nodiscard]] bool isReadable() const noexcept { return !format().empty(); }
    /// Calls `done` once with the texts of all URLs, unless this object is destroyed before. The
    /// list is empty if the other program sends invalid data, or nothing in time.
    void read(std::function<void(std::vector<std::string>)> done);

    /// Tells the other program whether the files can be dropped. `serial` is that of the event with
    /// which the drag entered.
    void answer(std::uint32_t serial, bool canDrop);
    /// Tells the other program that the drop has been carried out. May follow only an `answer` that
    /// allowed it.
    void finish();

private:
    struct Events;

    [[nodiscard]] std::string_view format() const noexcept;
    [[nodiscard]] std::uint32_t chosenAction() const noexcept;

    Proxy<wl_data_offer> offer_;
    /// A bit for each of `DroppedText::formats` that is offered.
    std::uint32_t formats_ = 0;
    std::uint32_t possibleActions_ = 0;
    /// What the compositor has decided on.
    std::uint32_t action_ = 0;
    std::unique_ptr<PipeReader> reader_;
};

}
