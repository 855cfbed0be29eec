/// In-memory fakes of the ports for applications: installed, running and pinned ones, opening
/// things, icons, and the program itself.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Application.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"
#include "Platform/Applications/DockPreferences.hpp"
#include "Platform/Applications/Icons.hpp"
#include "Platform/Applications/LauncherAnnouncements.hpp"
#include "Platform/Applications/RunningApplications.hpp"
#include "Platform/Applications/Workspace.hpp"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vireline::test {

class FakeApplicationCatalog final : public ApplicationCatalog {
public:
    [[nodiscard]] std::optional<FileURL> urlForBundleID(const std::string& bundleID) const override;
    [[nodiscard]] std::optional<std::string> bundleIdentifier(const FileURL& url) const override;
    [[nodiscard]] std::string displayName(const FileURL& url) const override;
    [[nodiscard]] std::string bundleExtension() const override { return appExtension; }
    [[nodiscard]] FileManager fileManager() const override { return manager; }
    [[nodiscard]] std::vector<std::string> wellKnownBundleIDs() const override { return wellKnown; }

    [[nodiscard]] std::vector<Action> actions(const FileURL& url) const override {
        const auto found = offered.find(url.path());
        return found == offered.end() ? std::vector<Action>{} : found->second;
    }

    /// The apps' actions, by the apps' paths.
    std::map<std::string, std::vector<Action>> offered;
    std::vector<AppRef> installed;
    std::string appExtension = "app";
    FileManager manager{"com.apple.finder", "Finder"};
    std::vector<std::string> wellKnown{"com.apple.finder", "com.apple.Safari", "com.google.Chrome",
                                       "com.apple.mail", "com.apple.Notes"};
};

class FakeDockPreferences final : public DockPreferences {
public:
    [[nodiscard]] std::optional<PropertyList> persistentApps() override;
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override;

    void announceChange() { changes_.notify(); }

    /// The value of "persistent-apps".
    std::optional<PropertyList> tiles;
    int reads = 0;

private:
    CallbackList<> changes_;
};

/// Decodes only the bytes that a test has registered, and treats all others as damaged.
class FakePropertyListDecoder final : public PropertyListDecoder {
public:
    [[nodiscard]] Result<PropertyList> decode(std::span<const std::byte> bytes) const override;

    std::map<std::string, PropertyList> known;
    PlatformError damage{1, "not a property list"};
};

class FakeRunningApplications final : public RunningApplications {
public:
    [[nodiscard]] std::vector<RunningApplication> running() const override { return apps; }
    [[nodiscard]] std::vector<RunningApplication>
    instances(const std::string& bundleID) const override;
    void hide(const RunningApplication& app) override { hidden.push_back(app); }
    void terminate(const RunningApplication& app) override { terminated.push_back(app); }
    [[nodiscard]] Subscription observeWillLaunch(Handler handler) override;
    [[nodiscard]] Subscription observeDidLaunch(Handler handler) override;
    [[nodiscard]] Subscription observeDidTerminate(Handler handler) override;

    [[nodiscard]] AppAttention attention() const override { return attention_; }
    [[nodiscard]] Subscription observeAttention(std::function<void()> handler) override {
        return attentionChanges_.add(std::move(handler));
    }

    /// Simulates that windows of these apps demand attention, while another app is active.
    void demandAttention(const AppAttention& attention) {
        attention_ = attention;
        attentionChanges_.notify();
    }

    /// Only announces; the test maintains the list of apps itself.
    void announceWillLaunch(const std::optional<RunningApplication>& app) {
        willLaunch_.notify(app);
    }
    void announceDidLaunch(const std::optional<RunningApplication>& app) { didLaunch_.notify(app); }
    void announceDidTerminate(const std::optional<RunningApplication>& app) {
        didTerminate_.notify(app);
    }

    /// Simulates a whole launch: the first announcement, the addition to the list, the second
    /// announcement.
    void launch(const RunningApplication& app);
    /// Removes every instance of the app from the list and announces each.
    void quit(const std::string& bundleID);
    /// Makes the app frontmost; an empty identifier means that no app is.
    void bringToFront(const std::string& bundleID);

    std::vector<RunningApplication> apps;
    std::vector<RunningApplication> hidden;
    std::vector<RunningApplication> terminated;

private:
    using Listeners = CallbackList<std::optional<RunningApplication>>;

    AppAttention attention_;
    CallbackList<> attentionChanges_;
    Listeners willLaunch_;
    Listeners didLaunch_;
    Listeners didTerminate_;
};

class FakeLauncherAnnouncements final : public LauncherAnnouncements {
public:
    [[nodiscard]] std::map<std::string, TileStatus> current() override {
        ++reads;
        isTold_ = false;
        return statuses;
    }
    [[nodiscard]] Subscription observe(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }

    void announce(const std::string& bundleID, const TileStatus& status) {
        statuses[bundleID] = status;
        tell();
    }
    void withdraw(const std::string& bundleID) {
        statuses.erase(bundleID);
        tell();
    }

    std::map<std::string, TileStatus> statuses;
    int reads = 0;

private:
    void tell() {
        if (!std::exchange(isTold_, true))
            changes_.notify();
    }

    bool isTold_ = false;
    CallbackList<> changes_;
};

class FakeWorkspace final : public Workspace {
public:
    struct OpenedApplication {
        std::string bundleID;
        FileURL url;

        bool operator==(const OpenedApplication&) const = default;
    };

    void openApplication(const std::string& bundleID, const FileURL& url) override {
        openedApplications.push_back({bundleID, url});
        if (onOpenApplication)
            onOpenApplication();
    }
    void launchAgain(const std::string& bundleID, const FileURL& /*url*/) override {
        launchedAgain.push_back(bundleID);
    }
    void perform(const std::string& bundleID, const FileURL& /*url*/,
                 const std::string& actionID) override {
        performed.push_back(bundleID + " " + actionID);
    }
    void open(const FileURL& url) override { opened.push_back(url); }
    void reveal(const std::vector<FileURL>& urls) override { revealed.push_back(urls); }

    void openSystemSettings(const std::string& paneURL) override { openedPanes.push_back(paneURL); }

    std::vector<OpenedApplication> openedApplications;
    std::vector<std::string> launchedAgain;
    /// Such as "com.example.Notes new-window".
    std::vector<std::string> performed;
    std::vector<FileURL> opened;
    std::vector<std::vector<FileURL>> revealed;
    std::vector<std::string> openedPanes;
    /// Called from within `openApplication`, to simulate a platform that announces a launch
    /// immediately.
    std::function<void()> onOpenApplication;
};

inline std::ostream& operator<<(std::ostream& out, const FakeWorkspace::OpenedApplication& app) {
    return out << app.bundleID << " " << app.url;
}

/// An image that records what it was requested for.
class FakeImage final : public Image {
public:
    FakeImage(std::string source, Size size) : Image(size), source_(std::move(source)) {}

    /// A path, or the name of a system image or symbol.
    [[nodiscard]] const std::string& source() const noexcept { return source_; }

private:
    std::string source_;
};

class FakeIcons final : public Icons {
public:
    struct FileRequest {
        std::string path;
        std::string key;
        Size size;

        bool operator==(const FileRequest&) const = default;
    };
    struct SymbolRequest {
        std::string name;
        std::string accessibilityDescription;
        Size size;

        bool operator==(const SymbolRequest&) const = default;
    };

    [[nodiscard]] ImageHandle iconForFile(const std::string& path, const std::string& key,
                                          Size size) override;
    [[nodiscard]] ImageHandle namedImage(const std::string& name, Size size) override;
    [[nodiscard]] ImageHandle symbol(const std::string& name,
                                     const std::string& accessibilityDescription,
                                     Size size) override;

    [[nodiscard]] ImageHandle actionIcon(const std::string& name, Size size) override {
        return std::make_shared<FakeImage>(name, size);
    }

    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }

    /// Simulates the user choosing another icon theme.
    void announceChange() { changes_.notify(); }

    std::set<std::string> knownImages{"NSTrashEmpty"};
    std::set<std::string> knownSymbols{"trash.fill"};
    std::vector<FileRequest> fileRequests;
    std::vector<std::string> imageRequests;
    std::vector<SymbolRequest> symbolRequests;

private:
    CallbackList<> changes_;
};

class FakeApplication final : public Application {
public:
    void becomeAccessory() override { isAccessory = true; }
    void installMainMenu(const MainMenu& menu) override { mainMenu = menu; }
    /// Launches the program, calls `whileRunning`, and returns as if the user had then quit.
    int run(std::function<void()> onFinishedLaunching) override;
    void terminate() override { ++terminations; }
    [[nodiscard]] std::int64_t processIdentifier() const override { return process; }
    [[nodiscard]] Subscription observeSecondStart(std::function<void()> handler) override;

    void announceSecondStart() { secondStarts_.notify(); }

    std::function<void()> whileRunning;
    bool isAccessory = false;
    std::optional<MainMenu> mainMenu;
    int terminations = 0;
    int exitCode = 0;
    std::int64_t process = 4711;

private:
    CallbackList<> secondStarts_;
};

}
