/// Ports that call back from within the program's calls, and that count active listeners.
#pragma once

#include "Storm/StormWindow.hpp"
#include "Support/FakePlatform.hpp"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vireline::storm {

/// Counts callbacks for as long as the program keeps them installed.
class Listeners {
public:
    template <class Handler>
    [[nodiscard]] auto counted(Handler handler) const {
        return [handler = std::move(handler), token = token_](const auto&... arguments) {
            handler(arguments...);
        };
    }

    [[nodiscard]] int count() const { return static_cast<int>(token_.use_count()) - 1; }

private:
    std::shared_ptr<char> token_ = std::make_shared<char>();
};

class StormPanelWindows final : public PanelWindows {
public:
    StormPanelWindows(WindowWitness& witness, bool tracksAll, bool tracksNone)
        : witness_(witness), tracksAll_(tracksAll), tracksNone_(tracksNone) {}

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

    /// The number of windows that each display has had.
    [[nodiscard]] const std::map<std::uint32_t, int>& made() const noexcept { return made_; }

private:
    WindowWitness& witness_;
    bool tracksAll_;
    bool tracksNone_;
    std::map<std::uint32_t, int> made_;
};

class StormScreens final : public Screens {
public:
    StormScreens(Screens& screens, const Listeners& listeners, WindowWitness& witness)
        : screens_(screens), listeners_(listeners), witness_(witness) {}

    [[nodiscard]] std::vector<PlatformScreen> screens() const override {
        witness_.screensRead();
        return screens_.screens();
    }
    [[nodiscard]] Subscription observeParameters(std::function<void()> handler) override {
        return screens_.observeParameters(listeners_.counted(std::move(handler)));
    }

private:
    Screens& screens_;
    const Listeners& listeners_;
    WindowWitness& witness_;
};

class StormDockPreferences final : public DockPreferences {
public:
    StormDockPreferences(DockPreferences& preferences, const Listeners& listeners)
        : preferences_(preferences), listeners_(listeners) {}

    [[nodiscard]] std::optional<PropertyList> persistentApps() override {
        return preferences_.persistentApps();
    }
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override {
        return preferences_.observeChanges(listeners_.counted(std::move(handler)));
    }

private:
    DockPreferences& preferences_;
    const Listeners& listeners_;
};

class StormRunningApplications final : public RunningApplications {
public:
    StormRunningApplications(RunningApplications& running, const Listeners& listeners,
                             WindowWitness& witness)
        : running_(running), listeners_(listeners), witness_(witness) {}

    [[nodiscard]] std::vector<RunningApplication> running() const override {
        witness_.runningAppsRead();
        return running_.running();
    }
    [[nodiscard]] std::vector<RunningApplication>
    instances(const std::string& bundleID) const override {
        return running_.instances(bundleID);
    }
    void hide(const RunningApplication& app) override {
        running_.hide(app);
        witness_.called("hide");
    }
    void terminate(const RunningApplication& app) override {
        running_.terminate(app);
        witness_.called("terminate");
    }
    [[nodiscard]] AppAttention attention() const override { return running_.attention(); }
    [[nodiscard]] Subscription observeAttention(std::function<void()> handler) override {
        return running_.observeAttention(listeners_.counted(std::move(handler)));
    }
    [[nodiscard]] Subscription observeWillLaunch(Handler handler) override {
        return running_.observeWillLaunch(listeners_.counted(std::move(handler)));
    }
    [[nodiscard]] Subscription observeDidLaunch(Handler handler) override {
        return running_.observeDidLaunch(listeners_.counted(std::move(handler)));
    }
    [[nodiscard]] Subscription observeDidTerminate(Handler handler) override {
        return running_.observeDidTerminate(listeners_.counted(std::move(handler)));
    }

private:
    RunningApplications& running_;
    const Listeners& listeners_;
    WindowWitness& witness_;
};

class StormAnnouncements final : public LauncherAnnouncements {
public:
    StormAnnouncements(LauncherAnnouncements& announcements, const Listeners& listeners)
        : announcements_(announcements), listeners_(listeners) {}

    [[nodiscard]] std::map<std::string, TileStatus> current() override {
        return announcements_.current();
    }
    [[nodiscard]] Subscription observe(std::function<void()> handler) override {
        return announcements_.observe(listeners_.counted(std::move(handler)));
    }

private:
    LauncherAnnouncements& announcements_;
    const Listeners& listeners_;
};

class StormIcons final : public Icons {
public:
    StormIcons(Icons& icons, const Listeners& listeners) : icons_(icons), listeners_(listeners) {}

    [[nodiscard]] ImageHandle iconForFile(const std::string& path, const std::string& key,
                                          Size size) override {
        return icons_.iconForFile(path, key, size);
    }
    [[nodiscard]] ImageHandle namedImage(const std::string& name, Size size) override {
        return icons_.namedImage(name, size);
    }
    [[nodiscard]] ImageHandle symbol(const std::string& name, const std::string& description,
                                     Size size) override {
        return icons_.symbol(name, description, size);
    }
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override {
        return icons_.observeChanges(listeners_.counted(std::move(handler)));
    }

private:
    Icons& icons_;
    const Listeners& listeners_;
};

class StormApplication final : public Application {
public:
    StormApplication(Application& application, const Listeners& listeners)
        : application_(application), listeners_(listeners) {}

    void becomeAccessory() override { application_.becomeAccessory(); }
    void installMainMenu(const MainMenu& menu) override { application_.installMainMenu(menu); }
    int run(std::function<void()> onFinishedLaunching) override {
        return application_.run(std::move(onFinishedLaunching));
    }
    void terminate() override { application_.terminate(); }
    [[nodiscard]] std::int64_t processIdentifier() const override {
        return application_.processIdentifier();
    }
    [[nodiscard]] Subscription observeSecondStart(std::function<void()> handler) override {
        return application_.observeSecondStart(listeners_.counted(std::move(handler)));
    }

private:
    Application& application_;
    const Listeners& listeners_;
};

class StormWorkspace final : public Workspace {
public:
    StormWorkspace(Workspace& workspace, WindowWitness& witness)
        : workspace_(workspace), witness_(witness) {}

    void openApplication(const std::string& bundleID, const FileURL& url) override {
        workspace_.openApplication(bundleID, url);
        witness_.called("openApplication");
    }
    void open(const FileURL& url) override {
        workspace_.open(url);
        witness_.called("open");
    }
    void reveal(const std::vector<FileURL>& urls) override {
        workspace_.reveal(urls);
        witness_.called("reveal");
    }
    void openSystemSettings(const std::string& paneURL) override {
        workspace_.openSystemSettings(paneURL);
        witness_.called("openSystemSettings");
    }

private:
    Workspace& workspace_;
    WindowWitness& witness_;
};

/// The fake platform with these ports in place of its own.
class StormPorts {
public:
    StormPorts(test::FakePlatform& platform, WindowWitness& witness, bool tracksAll,
               bool tracksNone);

    [[nodiscard]] Platform ports();

    [[nodiscard]] const std::map<std::uint32_t, int>& windowsMade() const noexcept {
        return panelWindows_.made();
    }

    /// The number of callbacks that the program has installed and not removed.
    [[nodiscard]] int listenerCount() const { return listeners_.count(); }

private:
    test::FakePlatform& fake_;
    Listeners listeners_;
    StormPanelWindows panelWindows_;
    StormScreens screens_;
    StormApplication application_{fake_.application, listeners_};
    StormDockPreferences dockPreferences_{fake_.dockPreferences, listeners_};
    StormIcons icons_{fake_.icons, listeners_};
    StormAnnouncements announcements_{fake_.announcements, listeners_};
    StormRunningApplications running_;
    StormWorkspace workspace_;
};

}
