#include "Applications/ClientWindowReader.hpp"

#include "Applications/Identity/HostName.hpp"
#include "Connection/PropertyBatch.hpp"
#include "Connection/XcbWindows.hpp"
#include "Text/PlainText.hpp"

#include <xcb/res.h>

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace vireline::x11 {
namespace {

constexpr std::array<std::string_view, 11> windowProperties{
    "WM_CLASS",      "_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE", "_NET_STARTUP_ID",
    "_NET_WM_PID",   "WM_CLIENT_MACHINE",   "WM_CLIENT_LEADER",         "_NET_WM_WINDOW_TYPE",
    "_NET_WM_STATE", "_NET_WM_DESKTOP",     "WM_TRANSIENT_FOR"};

constexpr std::array<std::string_view, 3> states{
    "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_HIDDEN", "_NET_WM_STATE_DEMANDS_ATTENTION"};

/// Types of programs' main windows first.
constexpr std::array<std::string_view, 14> types{
    "_NET_WM_WINDOW_TYPE_NORMAL",        "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_DESKTOP",       "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_TOOLBAR",       "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_UTILITY",       "_NET_WM_WINDOW_TYPE_SPLASH",
    "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU", "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_TOOLTIP",       "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_COMBO",         "_NET_WM_WINDOW_TYPE_DND"};

constexpr std::size_t maximumTextBytes = 1024;
constexpr std::size_t maximumAtomBytes = 256;
constexpr std::uint32_t allDesktops = 0xffffffff;

std::string_view firstLabel(std::string_view host) {
    return host.substr(0, host.find('.'));
}

std::int32_t validProcess(std::uint32_t identifier) {
    constexpr auto greatest = static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max());
    return identifier <= greatest ? static_cast<std::int32_t>(identifier) : 0;
}

/// The server's own record of the window's owner. It is correct for sandboxed programs too, which
/// see a different process ID for themselves than the rest of the system.
std::int32_t ownerIn(xcb_res_query_client_ids_reply_t& reply) {
    for (auto item = xcb_res_query_client_ids_ids_iterator(&reply); item.rem > 0;
         xcb_res_client_id_value_next(&item)) {
        const bool isProcess =
            (item.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
        if (isProcess && xcb_res_client_id_value_value_length(item.data) > 0)
            return validProcess(*xcb_res_client_id_value_value(item.data));
    }
    return 0;
}

}

/// Indices of the requests for one window.
struct ClientWindowReader::Requests {
    xcb_window_t window;
    std::size_t wmClass, gtkID, kdeFile, startupID, processID, machine, leader, type, state,
        desktop, transientFor;
    std::optional<xcb_res_query_client_ids_cookie_t> owner;
};

ClientWindowReader::ClientWindowReader(X11Connection& connection)
    : connection_(connection), hostName_(xdg::HostName::read()) {
    connection_.intern(windowProperties);
    connection_.intern(states);
    connection_.intern(types);
    const auto* extension = xcb_get_extension_data(connection_.get(), &xcb_res_id);
    hasResourceExtension_ = extension != nullptr && extension->present != 0;
}

bool ClientWindowReader::concerns(xcb_atom_t property) const {
    return std::ranges::any_of(windowProperties, [this, property](std::string_view name) {
        return connection_.atom(name) == property;
    });
}

std::vector<std::optional<xdg::ClientWindow>>
ClientWindowReader::read(std::span<const xcb_window_t> windows) const {
    PropertyBatch batch{connection_};
    std::vector<Requests> requests;
    requests.reserve(windows.size());
    for (const xcb_window_t window : windows)
        requests.push_back(ask(batch, window));
    std::vector<std::optional<xdg::ClientWindow>> found;
    found.reserve(windows.size());
    for (const auto& request : requests)
        found.push_back(collect(batch, request));
    completeStartupIDs(batch, requests, found);
    return found;
}

ClientWindowReader::Requests ClientWindowReader::ask(PropertyBatch& batch,
                                                     xcb_window_t window) const {
    const auto text = [&](std::string_view name) {
        return batch.ask(window, name, maximumTextBytes);
    };
    const auto items = [&](std::string_view name) {
        return batch.ask(window, name, maximumAtomBytes);
    };
    Requests requests{.window = window,
                      .wmClass = text("WM_CLASS"),
                      .gtkID = text("_GTK_APPLICATION_ID"),
                      .kdeFile = text("_KDE_NET_WM_DESKTOP_FILE"),
                      .startupID = text("_NET_STARTUP_ID"),
                      .processID = items("_NET_WM_PID"),
                      .machine = text("WM_CLIENT_MACHINE"),
                      .leader = items("WM_CLIENT_LEADER"),
                      .type = items("_NET_WM_WINDOW_TYPE"),
                      .state = items("_NET_WM_STATE"),
                      .desktop = items("_NET_WM_DESKTOP"),
                      .transientFor = items("WM_TRANSIENT_FOR"),
                      .owner = std::nullopt};
    if (hasResourceExtension_) {
        const xcb_res_client_id_spec_t spec{.client = window,
                                            .mask = XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        requests.owner = xcb_res_query_client_ids(connection_.get(), 1, &spec);
    }
    return requests;
}

std::optional<xdg::ClientWindow> ClientWindowReader::collect(PropertyBatch& batch,
                                                             const Requests& requests) const {
    xdg::ClientWindow window{};
    window.id = windowID(requests.window);
    window.processIdentifier = process(batch, requests);
    if (!batch.hasWindow(requests.wmClass))
        return std::nullopt;
    window.traits.setWMClass(batch.bytes(requests.wmClass));
    window.traits.gtkApplicationID = xdg::PlainText::clean(batch.bytes(requests.gtkID));
    window.traits.kdeDesktopFile =
        xdg::PlainText::clean(batch.bytes(requests.kdeFile), maximumTextBytes);
    window.traits.startupID =
        xdg::PlainText::clean(batch.bytes(requests.startupID), maximumTextBytes);
    const Kind windowKind = kind(batch, requests);
    window.isOrdinary =
        windowKind != Kind::other && !hasState(batch, requests, "_NET_WM_STATE_SKIP_TASKBAR");
    window.isDialog = windowKind == Kind::dialog;
    window.isHidden = hasState(batch, requests, "_NET_WM_STATE_HIDDEN");
    window.isUrgent = hasState(batch, requests, "_NET_WM_STATE_DEMANDS_ATTENTION");
    window.desktop = batch.firstItem(requests.desktop, XCB_ATOM_CARDINAL);
    if (window.desktop == allDesktops)
        window.desktop.reset();
    return window;
}

bool ClientWindowReader::hasState(PropertyBatch& batch, const Requests& requests,
                                  std::string_view state) const {
    const auto states = batch.items(requests.state, XCB_ATOM_ATOM);
    return std::ranges::find(states, connection_.atom(state)) != states.end();
}

ClientWindowReader::Kind ClientWindowReader::kind(PropertyBatch& batch,
                                                  const Requests& requests) const {
    // A window lists its types in order of preference; unknown ones, which may be made up, are
    // skipped.
    for (const xcb_atom_t type : batch.items(requests.type, XCB_ATOM_ATOM)) {
        const auto known = std::ranges::find_if(
            types, [this, type](std::string_view name) { return connection_.atom(name) == type; });
        if (known == types.begin())
            return Kind::normal;
        if (known != types.end())
            return known == types.begin() + 1 ? Kind::dialog : Kind::other;
    }
    const auto owner = batch.firstItem(requests.transientFor, XCB_ATOM_WINDOW);
    return owner.value_or(XCB_NONE) == XCB_NONE ? Kind::normal : Kind::dialog;
}

std::int32_t ClientWindowReader::process(PropertyBatch& batch, const Requests& requests) const {
    std::int32_t owner = 0;
    if (requests.owner) {
        const Owned<xcb_res_query_client_ids_reply_t> reply{
            xcb_res_query_client_ids_reply(connection_.get(), *requests.owner, nullptr)};
        owner = reply ? ownerIn(*reply) : 0;
    }
    // Windows of programs on another machine are connected through a local helper, whose process is
    // not the owner.
    const std::string_view machine = batch.bytes(requests.machine);
    if (!machine.empty() && machine != "localhost" && firstLabel(machine) != firstLabel(hostName_))
        return 0;
    if (owner > 0)
        return owner;
    return validProcess(batch.firstItem(requests.processID, XCB_ATOM_CARDINAL).value_or(0));
}

/// Toolkits may set the startup ID on the group leader instead of on the window itself.
void ClientWindowReader::completeStartupIDs(
    PropertyBatch& batch, std::span<const Requests> requests,
    std::span<std::optional<xdg::ClientWindow>> windows) const {
    PropertyBatch leaders{connection_};
    std::vector<std::pair<std::size_t, xdg::ClientWindow*>> asked;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        auto& window = windows[i];
        if (!window || !window->traits.startupID.empty())
            continue;
        const xcb_window_t leader =
            batch.firstItem(requests[i].leader, XCB_ATOM_WINDOW).value_or(requests[i].window);
        if (leader != requests[i].window)
            asked.emplace_back(leaders.ask(leader, "_NET_STARTUP_ID", maximumTextBytes), &*window);
    }
    for (const auto& [request, window] : asked)
        window->traits.startupID = xdg::PlainText::clean(leaders.bytes(request), maximumTextBytes);
}

}
