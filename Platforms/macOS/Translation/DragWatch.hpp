/// Detects from polled states of the keyboard and the pointer that a drag of a tile was cancelled.
#pragma once

namespace vireline::macos {

class DragWatch {
public:
    /// The polled state.
    struct Look {
        bool isEscapeDown = false;
        bool isPrimaryDown = true;
    };

    /// Whether the drag was cancelled. A button that is up counts only at the second call in a row:
    /// at the first, the event of its release may still be on its way, and that would be a drop.
    [[nodiscard]] bool isCancelled(const Look& look) noexcept {
        const bool wasUp = isUp_;
        isUp_ = !look.isPrimaryDown;
        return look.isEscapeDown || (wasUp && isUp_);
    }

private:
    bool isUp_ = false;
};

}
