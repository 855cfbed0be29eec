/// Tells from looks at the keyboard and the pointer when a drag of the program's own is taken away.
#pragma once

namespace vireline::macos {

class DragWatch {
public:
    /// How the keyboard and the pointer stand.
    struct Look {
        bool isEscapeDown = false;
        bool isPrimaryDown = true;
    };

    /// Whether the drag is over by now. A button that is up counts at the second look in a row:
    /// after the first, the event of its release may still be on its way, and that is a drop.
    [[nodiscard]] bool isTakenAway(const Look& look) noexcept {
        const bool wasUp = isUp_;
        isUp_ = !look.isPrimaryDown;
        return look.isEscapeDown || (wasUp && isUp_);
    }

private:
    bool isUp_ = false;
};

}
