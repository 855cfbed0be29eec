/// Reads many windows' properties at a time, and finds their processes.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"
#include "Connection/X11Connection.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11 {

class PropertyBatch;

class ClientWindowReader {
public:
    explicit ClientWindowReader(X11Connection& connection);

    /// One result per window, nullopt for one that vanished. `lastActive` is left at 0.
    [[nodiscard]] std::vector<std::optional<xdg::ClientWindow>>
    read(std::span<const xcb_window_t> windows) const;

    /// Whether a change of this property can affect what `read` returns.
    [[nodiscard]] bool concerns(xcb_atom_t property) const;

private:
    struct Requests;

    [[nodiscard]] Requests ask(PropertyBatch& batch, xcb_window_t window) const;
    [[nodiscard]] std::optional<xdg::ClientWindow> collect(PropertyBatch& batch,
                                                           const Requests& requests) const;
    [[nodiscard]] bool hasState(PropertyBatch& batch, const Requests& requests,
                                std::string_view state) const;
    /// A window without a known type is normal, or a dialog if it is transient for another window.
    enum class Kind { normal, dialog, other };
    [[nodiscard]] Kind kind(PropertyBatch& batch, const Requests& requests) const;
    [[nodiscard]] std::int32_t process(PropertyBatch& batch, const Requests& requests) const;
    void completeStartupIDs(PropertyBatch& batch, std::span<const Requests> requests,
                            std::span<std::optional<xdg::ClientWindow>> windows) const;

    X11Connection& connection_;
    std::string hostName_;
    bool hasResourceExtension_ = false;
};

}
