#include "Displays/SwayWorkspaces.hpp"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <utility>

namespace vireline::wayland {
namespace {

QRect rectOf(const QJsonObject& object) {
    return {object[QLatin1StringView{"x"}].toInt(), object[QLatin1StringView{"y"}].toInt(),
            object[QLatin1StringView{"width"}].toInt(),
            object[QLatin1StringView{"height"}].toInt()};
}

}

std::unique_ptr<SwayWorkspaces> SwayWorkspaces::open(const std::string& socket,
                                                     std::function<void()> onChange) {
    auto connection = SwayConnection::open(socket);
    if (!connection)
        return nullptr;
    return std::unique_ptr<SwayWorkspaces>{
        new SwayWorkspaces{std::move(connection), std::move(onChange)}};
}

SwayWorkspaces::SwayWorkspaces(std::unique_ptr<SwayConnection> connection,
                               std::function<void()> onChange)
    : connection_(std::move(connection)), onChange_(std::move(onChange)) {
    connection_->listen([this](const SwayMessage& message) {
        if (message.type != SwayMessageType::getWorkspaces)
            return;
        Areas areas = parse(message.text);
        if (std::exchange(areas_, areas) != areas)
            onChange_();
    });
    refresh();
}

void SwayWorkspaces::refresh() {
    connection_->send(SwayMessageType::getWorkspaces, {});
}

std::optional<QRect> SwayWorkspaces::on(const std::string& output) const {
    const auto found = areas_.find(output);
    return found == areas_.end() ? std::nullopt : std::optional{found->second};
}

SwayWorkspaces::Areas SwayWorkspaces::parse(std::string_view json) {
    const auto bytes = QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size()));
    Areas areas;
    for (const auto value : QJsonDocument::fromJson(bytes).array()) {
        const QJsonObject workspace = value.toObject();
        if (workspace[QLatin1StringView{"visible"}].toBool())
            areas[workspace[QLatin1StringView{"output"}].toString().toStdString()] =
                rectOf(workspace[QLatin1StringView{"rect"}].toObject());
    }
    return areas;
}

}
