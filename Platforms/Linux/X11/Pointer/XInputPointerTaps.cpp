#include "Pointer/XInputPointerTaps.hpp"

#include "Connection/SideConnection.hpp"
#include "Displays/DisplayGeometry.hpp"
#include "Displays/RandrScreens.hpp"

#include <xcb/xinput.h>

#include <cerrno>
#include <cstddef>
#include <set>
#include <span>
#include <utility>

namespace vireline::x11 {
namespace {

/// Timeout for querying the extension's version; seconds.
constexpr double creationSeconds = 0.5;

/// 1 in the protocol's 16.16 fixed-point numbers.
constexpr int fixedOne = 1 << 16;

/// Bits in the mask of held buttons, in which button 1 is bit 1.
constexpr std::uint32_t leftButton = 1U << XCB_BUTTON_INDEX_1;
constexpr std::uint32_t otherButtons = 1U << XCB_BUTTON_INDEX_2 | 1U << XCB_BUTTON_INDEX_3;

std::uint32_t buttonsHeld(const xcb_input_xi_query_pointer_reply_t& reply) {
    return reply.buttons_len > 0 ? *xcb_input_xi_query_pointer_buttons(&reply) : 0;
}

/// Moves with other buttons held are ignored, except together with the left one.
bool concerns(std::uint32_t buttons) {
    return (buttons & leftButton) != 0 || (buttons & otherButtons) == 0;
}

/// Since 2.1, raw motion is reported even while another program has grabbed the pointer.
bool hasRawMotion(SideConnection& connection) {
    const auto* const extension = xcb_get_extension_data(connection.get(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return false;
    constexpr std::uint16_t major = 2;
    constexpr std::uint16_t minor = 1;
    const auto reply = connection.reply<xcb_input_xi_query_version_reply_t>(
        xcb_input_xi_query_version(connection.get(), major, minor),
        SideConnection::in(creationSeconds));
    return reply && (reply->major_version > major ||
                     (reply->major_version == major && reply->minor_version >= minor));
}

class RawMotionTap final : public PointerTap {
public:
    RawMotionTap(std::unique_ptr<SideConnection> connection, const RandrScreens& screens,
                 PointerRule rule)
        : screens_(screens)
        , rule_(std::move(rule))
        , inputExtension_(xcb_get_extension_data(connection->get(), &xcb_input_id)->major_opcode)
        , connection_(std::move(connection)) {
        connection_->onEvent = [this](const xcb_generic_event_t& event) { noteMotion(event); };
        connection_->onRest = [this] { query(); };
    }

    void setEnabled(bool isEnabled) override {
        isEnabled_ = isEnabled;
        struct {
            xcb_input_event_mask_t head;
            std::uint32_t mask;
        } const selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                          isEnabled ? std::uint32_t{XCB_INPUT_XI_EVENT_MASK_RAW_MOTION} : 0U};
        xcb_input_xi_select_events(connection_->get(), connection_->root(), 1, &selection.head);
        connection_->flush();
    }

    void setRule(PointerRule rule) override { rule_ = std::move(rule); }

private:
    void noteMotion(const xcb_generic_event_t& event) {
        if (event.response_type != XCB_GE_GENERIC)
            return;
        const auto& motion = reinterpret_cast<const xcb_input_raw_motion_event_t&>(event);
        if (motion.extension == inputExtension_ && motion.event_type == XCB_INPUT_RAW_MOTION)
            moved_.insert(motion.deviceid);
    }

    /// Coalesces motion events: only the current position matters. It is never waited for, so that
    /// a busy server neither blocks the program nor makes it miss the pointer's last position.
    void query() {
        std::erase_if(moved_, [this](xcb_input_device_id_t pointer) {
            const bool isDue = queried_.insert(pointer).second;
            if (isDue)
                query(pointer);
            return isDue;
        });
    }

    void query(xcb_input_device_id_t pointer) {
        connection_->whenReplied<xcb_input_xi_query_pointer_reply_t>(
            xcb_input_xi_query_pointer(connection_->get(), connection_->root(), pointer),
            [this, pointer](const Owned<xcb_input_xi_query_pointer_reply_t>& reply) {
                queried_.erase(pointer);
                if (reply)
                    pass(pointer, *reply);
                query();
            });
    }

    void pass(xcb_input_device_id_t pointer, const xcb_input_xi_query_pointer_reply_t& state) {
        const std::span<const Display> displays{screens_.displays()};
        if (!isEnabled_ || !concerns(buttonsHeld(state)) || displays.empty())
            return;
        const PixelPoint now{state.root_x >> 16, state.root_y >> 16};
        const auto wanted = rule_(DisplayGeometry::eventPoint(displays, now.x, now.y));
        if (!wanted)
            return;
        const PixelPoint pixel = DisplayGeometry::pixelAt(displays, *wanted);
        if (pixel != now)
            move(pointer, now, pixel);
    }

    /// Moves the pointer by the distance between the pixels if it is still in the row of `from`.
    /// If it has gone on since its position was queried, it is not pulled back there.
    void move(xcb_input_device_id_t pointer, PixelPoint from, PixelPoint to) {
        constexpr std::uint16_t wholeWidth = 0;
        constexpr std::uint16_t oneRow = 1;
        xcb_input_xi_warp_pointer(connection_->get(), connection_->root(), XCB_NONE, 0,
                                  from.y * fixedOne, wholeWidth, oneRow, (to.x - from.x) * fixedOne,
                                  (to.y - from.y) * fixedOne, pointer);
        connection_->flush();
    }

    const RandrScreens& screens_;
    PointerRule rule_;
    std::uint8_t inputExtension_;
    bool isEnabled_ = false;
    std::set<xcb_input_device_id_t> moved_;
    /// Those whose position has been queried and is not known yet.
    std::set<xcb_input_device_id_t> queried_;
    std::unique_ptr<SideConnection> connection_;
};

}

Result<std::unique_ptr<PointerTap>> XInputPointerTaps::create(PointerRule rule, Disabled) {
    auto connection = SideConnection::open();
    if (!connection)
        return std::unexpected{connection.error()};
    if (!hasRawMotion(**connection))
        return std::unexpected{PlatformError{ENOTSUP, "the X server has no XInput 2.1"}};
    return std::make_unique<RawMotionTap>(*std::move(connection), screens_, std::move(rule));
}

}
