#include "Compositors/Sway/SwayTree.hpp"

#include "Text/PlainText.hpp"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

namespace vireline::wayland {
namespace {

/// The name of the workspace that holds what the scratchpad hides.
constexpr std::string_view scratchpad = "__i3_scratch";
/// The name of the output that holds that workspace.
constexpr std::string_view innerOutput = "__i3";

std::string text(const QJsonObject& node, QLatin1StringView key) {
    return node[key].toString().toStdString();
}

std::string cleanText(const QJsonObject& node, QLatin1StringView key) {
    return xdg::PlainText::clean(text(node, key));
}

Rect rect(const QJsonObject& node, QLatin1StringView key) {
    const auto value = node[key].toObject();
    return {value[QLatin1StringView{"x"}].toDouble(), value[QLatin1StringView{"y"}].toDouble(),
            value[QLatin1StringView{"width"}].toDouble(),
            value[QLatin1StringView{"height"}].toDouble()};
}

/// A node and where in the tree it is.
struct Place {
    QJsonObject node;
    std::string output;
    std::string workspace;
};

bool isView(const QJsonObject& node) {
    return node.contains(QLatin1StringView{"pid"});
}

SwayWindow describe(const Place& place) {
    const QJsonObject& node = place.node;
    const auto x11 = node[QLatin1StringView{"window_properties"}].toObject();
    SwayWindow window;
    window.id = node[QLatin1StringView{"id"}].toInteger();
    window.appID = cleanText(node, QLatin1StringView{"app_id"});
    window.className = cleanText(x11, QLatin1StringView{"class"});
    window.instance = cleanText(x11, QLatin1StringView{"instance"});
    window.title = cleanText(node, QLatin1StringView{"name"});
    window.processIdentifier = node[QLatin1StringView{"pid"}].toInt();
    // Its own rectangle begins below the title bar.
    window.frame = rect(node, QLatin1StringView{"rect"});
    const double bar = rect(node, QLatin1StringView{"deco_rect"}).height;
    window.frame.y -= bar;
    window.frame.height += bar;
    window.isInScratchpad = place.workspace == scratchpad;
    if (!window.isInScratchpad)
        window.workspace = place.workspace;
    window.isFloating = text(node, QLatin1StringView{"type"}) == "floating_con";
    window.isFocused = node[QLatin1StringView{"focused"}].toBool();
    window.isUrgent = node[QLatin1StringView{"urgent"}].toBool();
    window.isVisible = node[QLatin1StringView{"visible"}].toBool();
    window.isTransient = !x11[QLatin1StringView{"transient_for"}].isNull() &&
                         x11.contains(QLatin1StringView{"transient_for"});
    return window;
}

/// The node's children, the most recently focused first.
std::vector<QJsonObject> children(const QJsonObject& node) {
    std::vector<qint64> order;
    for (const auto id : node[QLatin1StringView{"focus"}].toArray())
        order.push_back(id.toInteger());
    std::multimap<std::ptrdiff_t, QJsonObject> sorted;
    for (const auto key : {QLatin1StringView{"nodes"}, QLatin1StringView{"floating_nodes"}}) {
        for (const auto value : node[key].toArray()) {
            const QJsonObject child = value.toObject();
            const auto place = std::ranges::find(order, child[QLatin1StringView{"id"}].toInteger());
            sorted.emplace(place - order.begin(), child);
        }
    }
    std::vector<QJsonObject> all;
    for (auto& [place, child] : sorted)
        all.push_back(std::move(child));
    return all;
}

SwayOutput describeOutput(const QJsonObject& node, std::string name) {
    return {std::move(name), rect(node, QLatin1StringView{"rect"}),
            text(node, QLatin1StringView{"current_workspace"})};
}

double distance(const Rect& rect, Point point) {
    const double x = std::max({rect.minX() - point.x, 0.0, point.x - rect.maxX()});
    const double y = std::max({rect.minY() - point.y, 0.0, point.y - rect.maxY()});
    return std::hypot(x, y);
}

}

const SwayWindow* SwayTree::window(std::int64_t id) const {
    const auto found = std::ranges::find(windows, id, &SwayWindow::id);
    return found == windows.end() ? nullptr : &*found;
}

const SwayOutput* SwayTree::outputAt(Point point) const {
    const auto nearest = std::ranges::min_element(
        outputs, {}, [point](const SwayOutput& output) { return distance(output.frame, point); });
    return nearest == outputs.end() ? nullptr : &*nearest;
}

std::optional<SwayTree> SwayTree::parse(std::string_view json) {
    const auto bytes = QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size()));
    const auto document = QJsonDocument::fromJson(bytes);
    if (!document.isObject() || text(document.object(), QLatin1StringView{"type"}) != "root")
        return std::nullopt;
    SwayTree tree;
    // The nodes that still have to be visited, in reverse order.
    std::vector<Place> open{{document.object(), {}, {}}};
    while (!open.empty()) {
        Place place = std::move(open.back());
        open.pop_back();
        const std::string type = text(place.node, QLatin1StringView{"type"});
        if (type == "output") {
            place.output = text(place.node, QLatin1StringView{"name"});
            if (place.output != innerOutput)
                tree.outputs.push_back(describeOutput(place.node, place.output));
        } else if (type == "workspace") {
            place.workspace = text(place.node, QLatin1StringView{"name"});
        } else if (isView(place.node)) {
            tree.windows.push_back(describe(place));
        }
        auto next = children(place.node);
        std::ranges::reverse(next);
        for (QJsonObject& child : next)
            open.push_back({std::move(child), place.output, place.workspace});
    }
    return tree;
}

}
