#include "Applications/Launching/StartupMessage.hpp"

#include <algorithm>
#include <span>

namespace vireline::xdg {
namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

void skipSpaces(std::string_view& text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
}

/// Takes a value off the front: up to the next blank, with quotes and backslashes resolved.
std::string takeValue(std::string_view& text) {
    std::string value;
    bool isQuoted = false;
    for (; !text.empty() && (isQuoted || !isSpace(text.front())); text.remove_prefix(1)) {
        if (text.front() == '"') {
            isQuoted = !isQuoted;
            continue;
        }
        if (text.front() == '\\' && text.size() > 1)
            text.remove_prefix(1);
        value += text.front();
    }
    return value;
}

std::string inQuotes(std::string_view value) {
    std::string text = "\"";
    for (const char c : value) {
        if (c == '"' || c == '\\')
            text += '\\';
        text += c;
    }
    return text + '"';
}

}

std::string StartupMessage::value(std::string_view key) const {
    const auto found = values.find(key);
    return found == values.end() ? std::string{} : found->second;
}

namespace StartupMessages {

std::optional<StartupMessage> parse(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    StartupMessage message;
    message.kind = text.substr(0, colon);
    text.remove_prefix(colon + 1);
    for (skipSpaces(text); !text.empty(); skipSpaces(text)) {
        const std::size_t equals = text.find('=');
        if (equals == std::string_view::npos)
            break;
        std::string key{text.substr(0, equals)};
        text.remove_prefix(equals + 1);
        // The value must be taken first, because that advances `text`.
        std::string value = takeValue(text);
        message.values.try_emplace(std::move(key), std::move(value));
    }
    const bool isKnown =
        message.kind == "new" || message.kind == "change" || message.kind == "remove";
    if (!isKnown || message.value("ID").empty())
        return std::nullopt;
    return message;
}

std::string text(const StartupMessage& message) {
    std::string text = message.kind + ':';
    for (const auto& [key, value] : message.values)
        text += ' ' + key + '=' + inQuotes(value);
    return text;
}

std::vector<Chunk> chunks(std::string_view text) {
    std::vector<Chunk> chunks(text.size() / chunkBytes + 1, Chunk{});
    for (std::size_t i = 0; i < text.size(); ++i)
        chunks[i / chunkBytes][i % chunkBytes] = text[i];
    return chunks;
}

}

std::optional<std::string> StartupMessageAssembler::take(std::uint32_t sender, bool isFirst,
                                                         const StartupMessages::Chunk& chunk) {
    auto found = std::ranges::find(unfinished_, sender, &Unfinished::sender);
    if (isFirst) {
        if (found != unfinished_.end())
            unfinished_.erase(found);
        if (unfinished_.size() >= maximumSenders)
            unfinished_.erase(unfinished_.begin());
        unfinished_.push_back({sender, {}});
        found = unfinished_.end() - 1;
    }
    if (found == unfinished_.end())
        return std::nullopt;
    const auto end = std::ranges::find(chunk, '\0');
    found->text.append(chunk.begin(), end);
    if (end == chunk.end() && found->text.size() <= StartupMessages::maximumBytes)
        return std::nullopt;
    std::optional<std::string> complete;
    if (end != chunk.end())
        complete = std::move(found->text);
    unfinished_.erase(found);
    return complete;
}

}
