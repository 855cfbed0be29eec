#include "Compositors/Sway/SwayWindowList.hpp"

#include "Compositors/Sway/SwayCommands.hpp"
#include "Text/PlainText.hpp"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <iterator>
#include <optional>
#include <ranges>
#include <utility>

namespace vireline::wayland {
namespace {

/// How long the first list of windows may take.
constexpr double startSeconds = 1;

xdg::WindowID windowID(std::int64_t id) {
    return static_cast<xdg::WindowID>(id);
}

std::int64_t swayID(xdg::WindowID window) {
    return static_cast<std::int64_t>(window);
}

}

std::unique_ptr<SwayWindowList> SwayWindowList::open(const std::string& socket, pid_t self) {
    auto connection = SwayConnection::open(socket);
    if (!connection)
        return nullptr;
    const auto reply = connection->request(SwayMessageType::getTree, {}, startSeconds);
    auto tree = reply ? SwayTree::parse(*reply) : std::nullopt;
    if (!tree)
        return nullptr;
    return std::unique_ptr<SwayWindowList>{
        new SwayWindowList{std::move(connection), self, *std::move(tree)}};
}

SwayWindowList::SwayWindowList(std::unique_ptr<SwayConnection> connection, pid_t self,
                               SwayTree tree)
    : connection_(std::move(connection)), self_(self) {
    for (const SwayWindow& window : std::views::reverse(tree.windows))
        lastActive_[window.id] = ++activations_;
    take(std::move(tree));
    connection_->listen([this](const SwayMessage& message) { handle(message); });
    connection_->send(SwayMessageType::subscribe, R"(["window", "workspace"])");
    // Catches changes from before the subscription.
    readTree();
}

std::vector<std::string> SwayWindowList::titles(std::span<const xdg::WindowID> windows) const {
    std::vector<std::string> titles;
    titles.reserve(windows.size());
    for (const xdg::WindowID id : windows) {
        const SwayWindow* const window = tree_.window(swayID(id));
        titles.push_back(window == nullptr ? std::string{} : window->title);
    }
    return titles;
}

/// Reads the windows' places again before hiding one, because sway does not announce every change,
/// and some only late.
void SwayWindowList::iconify(xdg::WindowID window) {
    if (!std::exchange(isPlacesRead_, true))
        readTree();
    run(SwayCommands::hide(swayID(window)));
}

void SwayWindowList::restore(xdg::WindowID window) {
    if (const auto before = places_.find(swayID(window)); before != places_.end())
        run(SwayCommands::bringBack(before->second));
}

void SwayWindowList::activate(xdg::WindowID window) {
    run(SwayCommands::focus(swayID(window)));
}

void SwayWindowList::close(xdg::WindowID window) {
    run(SwayCommands::close(swayID(window)));
}

void SwayWindowList::run(const std::string& command) {
    connection_->send(SwayMessageType::runCommand, command);
}

void SwayWindowList::handle(const SwayMessage& message) {
    switch (message.type) {
    case SwayMessageType::getTree:
        --expectedTrees_;
        if (auto tree = SwayTree::parse(message.text))
            take(*std::move(tree));
        if (std::exchange(isOutdated_, false))
            readTreeAgain();
        break;
    case SwayMessageType::windowEvent:
        if (!noteTitle(message.text))
            readTreeAgain();
        break;
    case SwayMessageType::workspaceEvent:
        readTreeAgain();
        break;
    default:
        break;
    }
}

/// Some programs change their titles often, which must not cost a tree each time.
bool SwayWindowList::noteTitle(const std::string& event) {
    const auto change = QJsonDocument::fromJson(QByteArray::fromStdString(event)).object();
    if (change[QLatin1StringView{"change"}].toString() != QLatin1StringView{"title"})
        return false;
    const auto node = change[QLatin1StringView{"container"}].toObject();
    const auto id = node[QLatin1StringView{"id"}].toInteger();
    const auto window = std::ranges::find(tree_.windows, id, &SwayWindow::id);
    if (window != tree_.windows.end())
        window->title =
            xdg::PlainText::clean(node[QLatin1StringView{"name"}].toString().toStdString());
    return true;
}

/// One request at a time, so that a burst of events costs two.
void SwayWindowList::readTreeAgain() {
    if (expectedTrees_ > 0)
        isOutdated_ = true;
    else
        readTree();
}

void SwayWindowList::readTree() {
    ++expectedTrees_;
    connection_->send(SwayMessageType::getTree, {});
}

void SwayWindowList::take(SwayTree tree) {
    tree_ = std::move(tree);
    std::erase_if(tree_.windows,
                  [this](const SwayWindow& window) { return window.processIdentifier == self_; });
    const auto isGone = [this](const auto& item) { return tree_.window(item.first) == nullptr; };
    std::erase_if(places_, isGone);
    std::erase_if(lastActive_, isGone);
    for (const SwayWindow& window : tree_.windows) {
        if (!window.isInScratchpad)
            places_[window.id] = window;
    }
    const auto activeBefore = active_;
    noteFocus();
    std::vector<xdg::ClientWindow> windows;
    std::ranges::transform(tree_.windows, std::back_inserter(windows),
                           [this](const SwayWindow& window) { return describe(window); });
    // sway numbers windows in the order in which they open.
    std::ranges::sort(windows, {}, &xdg::ClientWindow::id);
    const bool isChanged = active_ != activeBefore || windows != windows_;
    windows_ = std::move(windows);
    if (isChanged)
        changes_.notify();
}

void SwayWindowList::noteFocus() {
    const auto focused = std::ranges::find_if(tree_.windows, &SwayWindow::isFocused);
    const auto active =
        focused == tree_.windows.end() ? xdg::WindowID::none : windowID(focused->id);
    if (active != active_ && active != xdg::WindowID::none)
        lastActive_[focused->id] = ++activations_;
    active_ = active;
}

xdg::ClientWindow SwayWindowList::describe(const SwayWindow& window) const {
    xdg::ClientWindow client;
    client.id = windowID(window.id);
    if (window.appID.empty()) {
        client.traits.className = window.className;
        client.traits.instance = window.instance;
    } else {
        client.traits.setAppID(window.appID);
    }
    client.processIdentifier = window.processIdentifier;
    client.isOrdinary = true;
    client.isDialog = window.isTransient;
    client.isHidden = window.isInScratchpad;
    client.isUrgent = window.isUrgent;
    const auto active = lastActive_.find(window.id);
    client.lastActive = active == lastActive_.end() ? 0 : active->second;
    return client;
}

}
