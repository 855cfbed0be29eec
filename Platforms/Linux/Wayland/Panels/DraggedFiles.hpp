/// What other programs drag over a dock.
#pragma once

#include <qnamespace.h>

#include <string>
#include <vector>

class QDropEvent;
class QMimeData;

namespace vireline::wayland::DraggedFiles {

/// The texts of all URLs, in the drag's order.
[[nodiscard]] std::vector<std::string> urls(const QMimeData& content);

/// A copy if the source allows it; if it insists on another action, it may have a reason.
[[nodiscard]] Qt::DropAction chosenAction(const QDropEvent& event);

}
