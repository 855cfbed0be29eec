#include "VirtualDesktop/Compositors/SwayControl.hpp"

#include "Foundation/NonCopyable.hpp"

#include <nlohmann/json.hpp>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

namespace vireline::desktop {
namespace {

using Json = nlohmann::json;

constexpr std::uint32_t runCommand = 0;
constexpr std::uint32_t getTree = 4;
constexpr std::uint32_t getSeats = 101;

/// The magic letters, the length and the type.
struct Header {
    std::array<char, 6> magic{'i', '3', '-', 'i', 'p', 'c'};
    std::array<std::uint32_t, 2> words{};

    static constexpr std::size_t size = 14;
};

class Connection : private NonCopyable {
public:
    explicit Connection(const std::string& path)
        : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy_n(path.begin(), std::min(path.size(), sizeof address.sun_path - 1),
                    std::begin(address.sun_path));
        isOpen_ =
            connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    ~Connection() { close(socket_); }

    [[nodiscard]] bool write(std::string_view bytes) const {
        return isOpen_ && send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
                              static_cast<ssize_t>(bytes.size());
    }
    /// Exactly that many bytes; fewer if the connection ends.
    [[nodiscard]] std::string read(std::size_t count) const {
        std::string bytes(count, '\0');
        std::size_t have = 0;
        while (have < count) {
            const auto got = recv(socket_, bytes.data() + have, count - have, 0);
            if (got <= 0)
                break;
            have += static_cast<std::size_t>(got);
        }
        bytes.resize(have);
        return bytes;
    }

private:
    int socket_;
    bool isOpen_ = false;
};

PixelRect rectOf(const Json& rect) {
    return {rect.at("x"), rect.at("y"), rect.at("width"), rect.at("height")};
}

std::string textOf(const Json& node, const char* key) {
    const auto found = node.find(key);
    return found != node.end() && found->is_string() ? found->get<std::string>() : std::string{};
}

void collect(const Json& node, std::vector<SwayControl::Window>& windows) {
    if (node.contains("pid")) {
        windows.push_back({.id = node.at("id"),
                           .appID = textOf(node, "app_id"),
                           .title = textOf(node, "name"),
                           .process = node.at("pid"),
                           .frame = rectOf(node.at("rect")),
                           .isFocused = node.at("focused"),
                           .isUrgent = node.at("urgent"),
                           .isVisible = node.value("visible", false)});
    }
    for (const char* const children : {"nodes", "floating_nodes"}) {
        for (const Json& child : node.at(children))
            collect(child, windows);
    }
}

}

std::string SwayControl::request(std::uint32_t type, std::string_view text) const {
    const Connection connection{socket_};
    Header header;
    header.words = {static_cast<std::uint32_t>(text.size()), type};
    std::string bytes{header.magic.begin(), header.magic.end()};
    bytes.append(reinterpret_cast<const char*>(header.words.data()), sizeof header.words);
    if (!connection.write(bytes.append(text)))
        return {};
    const std::string answer = connection.read(Header::size);
    if (answer.size() < Header::size)
        return {};
    std::uint32_t length = 0;
    std::memcpy(&length, answer.data() + header.magic.size(), sizeof length);
    return connection.read(length);
}

void SwayControl::command(const std::string& text) const {
    const auto replies = Json::parse(request(runCommand, text), nullptr, false);
    const bool isDone = replies.is_array() && std::ranges::all_of(replies, [](const Json& reply) {
                            return reply.value("success", false);
                        });
    if (!isDone)
        throw std::runtime_error{"sway refuses: " + text};
}

std::vector<SwayControl::Window> SwayControl::windows() const {
    std::vector<Window> windows;
    const auto tree = Json::parse(request(getTree, {}), nullptr, false);
    if (tree.is_object())
        collect(tree, windows);
    // sway counts them.
    std::ranges::sort(windows, {}, &Window::id);
    return windows;
}

bool SwayControl::isKeyboardTaken() const {
    const auto seats = Json::parse(request(getSeats, {}), nullptr, false);
    return seats.is_array() && !seats.empty() && seats.front().value("focus", 1) == 0;
}

}
