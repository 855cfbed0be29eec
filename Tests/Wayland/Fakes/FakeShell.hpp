/// What a compositor offers for docks: one output, surfaces, the layer shell and popups. Notes all
/// requests, and where a client breaks the protocols' rules about the order of things.
#pragma once

#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/RequestLog.hpp"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vireline::wayland {

class FakeShell : private NonCopyable {
public:
    static constexpr int outputWidth = 800;
    static constexpr int outputHeight = 600;

    explicit FakeShell(FakeCompositor& compositor);

    /// The output comes or goes.
    void plugIn();
    void unplug();

    /// The first client is never told that it may draw its next frame. Qt 6.4 reads that in another
    /// thread, and crashes now and then when a window is destroyed at the same time.
    void leaveFirstClientWithoutFrames() { framesForFirst_ = false; }

    /// Whether roles are configured when they are first committed, as by a real compositor.
    void setConfigures(bool configures);
    /// Configures all roles that wait for that. Popups come to that place on their parent.
    void configure(int popupX = 0, int popupY = 0);
    /// Closes all layer surfaces, as when their output has gone.
    void closeLayers();
    void dismissPopups();

    /// Whole pixels per point of the output.
    void setScale(int scale);

    /// Whether frames are announced as soon as a surface is committed; otherwise they wait.
    void setAnnouncesFrames(bool announces);
    /// Announces all frames that wait.
    void announceFrames();
    [[nodiscard]] int waitingFrames();

    /// All surfaces enter or leave the output.
    void enterOutput();
    void leaveOutput();
    /// Another output of the same client.
    void enterOtherOutput();

    /// The requests since the previous call; see `RequestLog`.
    [[nodiscard]] RequestLog::Requests requests() { return log_.take(); }
    /// Only the requests that start with `beginning`.
    [[nodiscard]] RequestLog::Requests requests(const std::string& beginning);

    /// How many surfaces have that role; the names are those of the interfaces.
    [[nodiscard]] int count(const std::string& role);
    /// How many surfaces have been given content.
    [[nodiscard]] int withContent();
    /// The content that was committed last, of any surface.
    struct Content {
        int width = 0;
        int height = 0;
        /// The surface's buffer scale at that commit.
        int bufferScale = 1;
    };
    [[nodiscard]] Content latestContent();
    /// The errors since the previous call for which a real compositor would have ended the
    /// connection.
    [[nodiscard]] std::vector<std::string> takeViolations();

private:
    struct Surface {
        /// A layer surface or popup; null without a role.
        wl_resource* role = nullptr;
        /// Set for popups only.
        wl_resource* xdgSurface = nullptr;
        wl_resource* buffer = nullptr;
        std::vector<wl_resource*> frames;
        int bufferScale = 1;
        bool isConfigured = false;
        bool hasContent = false;
    };

    void describeOutput(wl_resource* output) const;
    void handle(const RequestLog::Request& request);
    void handleSurface(const RequestLog::Request& request);
    void giveRole(const RequestLog::Request& request);
    void forget(wl_resource* object);
    void commit(wl_resource* object, Surface& surface);
    void show(Surface& surface);
    void announceFrames(Surface& surface);
    void configureRole(Surface& surface);
    /// A client's objects for the output, in the order in which it bound them.
    [[nodiscard]] std::vector<wl_resource*> outputsOf(wl_resource* surface) const;

    FakeCompositor& compositor_;
    RequestLog log_{compositor_};
    std::map<wl_resource*, Surface> surfaces_;
    /// The clients' objects for the output.
    std::vector<wl_resource*> outputs_;
    /// The ones among `outputs_` whose output is still there. Some clients never destroy the
    /// others.
    std::vector<wl_resource*> pluggedIn_;
    std::vector<std::string> violations_;
    std::uint32_t serial_ = 0;
    int popupX_ = 0;
    int popupY_ = 0;
    int scale_ = 1;
    Content latestContent_;
    bool configures_ = true;
    bool framesForFirst_ = true;
    bool announcesFrames_ = true;
};

}
