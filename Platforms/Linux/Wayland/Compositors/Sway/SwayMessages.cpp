#include "Compositors/Sway/SwayMessages.hpp"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstring>

namespace vireline::wayland {
namespace {

constexpr std::string_view magic = "i3-ipc";
constexpr std::size_t headerBytes = magic.size() + 2 * sizeof(std::uint32_t);

std::uint32_t numberAt(std::string_view bytes, std::size_t position) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data() + position, sizeof number);
    return number;
}

void appendNumber(std::string& bytes, std::uint32_t number) {
    const auto position = bytes.size();
    bytes.resize(position + sizeof number);
    std::memcpy(bytes.data() + position, &number, sizeof number);
}

}

std::string SwayMessages::bytes(SwayMessageType type, std::string_view text) {
    std::string bytes{magic};
    appendNumber(bytes, static_cast<std::uint32_t>(text.size()));
    appendNumber(bytes, static_cast<std::uint32_t>(type));
    return bytes.append(text);
}

bool SwayMessages::reportsSuccess(std::string_view reply) {
    const auto bytes = QByteArray::fromRawData(reply.data(), static_cast<qsizetype>(reply.size()));
    const auto results = QJsonDocument::fromJson(bytes).array();
    return !results.isEmpty() && std::ranges::all_of(results, [](const QJsonValue& result) {
        return result.toObject()[QLatin1StringView{"success"}].toBool();
    });
}

std::optional<SwayMessage> SwayMessageReader::next() {
    if (isBroken_ || buffer_.size() < headerBytes)
        return std::nullopt;
    const std::size_t length = numberAt(buffer_, magic.size());
    if (!buffer_.starts_with(magic) || length > SwayMessages::maximumBytes) {
        isBroken_ = true;
        return std::nullopt;
    }
    if (buffer_.size() < headerBytes + length)
        return std::nullopt;
    SwayMessage message{
        static_cast<SwayMessageType>(numberAt(buffer_, magic.size() + sizeof(std::uint32_t))),
        buffer_.substr(headerBytes, length)};
    buffer_.erase(0, headerBytes + length);
    return message;
}

}
