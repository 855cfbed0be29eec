#include "Support/FaultyPlatform.hpp"

#include "Support/OtherPorts.hpp"

#include <utility>

namespace vireline::test {
namespace {

class FaultyFileSystem final : public FileSystem {
public:
    FaultyFileSystem(FileSystem& port, Faults& faults) : port_(port), faults_(faults) {}

    [[nodiscard]] bool exists(const FileURL& url) const override {
        return faults_("FileSystem::exists", [&] { return port_.exists(url); });
    }
    [[nodiscard]] Result<std::string> read(const FileURL& url,
                                           std::size_t maximumBytes) const override {
        return faults_("FileSystem::read", [&] { return port_.read(url, maximumBytes); });
    }
    Result<void> createFolder(const FileURL& url) override {
        return faults_("FileSystem::createFolder", [&] { return port_.createFolder(url); });
    }
    Result<void> writeAtomically(const FileURL& url, std::string_view content) override {
        return faults_("FileSystem::writeAtomically",
                       [&] { return port_.writeAtomically(url, content); });
    }

private:
    FileSystem& port_;
    Faults& faults_;
};

class FaultyFileEvents final : public FileEvents {
public:
    FaultyFileEvents(FileEvents& port, Faults& faults) : port_(port), faults_(faults) {}

    [[nodiscard]] Result<Subscription> watch(const FileURL& url,
                                             std::function<void(FileEventSet)> handler) override {
        return faults_("FileEvents::watch", [&] { return port_.watch(url, std::move(handler)); });
    }

private:
    FileEvents& port_;
    Faults& faults_;
};

class FaultyUserFolders final : public UserFolders {
public:
    FaultyUserFolders(UserFolders& port, Faults& faults) : port_(port), faults_(faults) {}

    [[nodiscard]] FileURL home() const override { return port_.home(); }
    [[nodiscard]] std::vector<FileURL> applicationSupport() const override {
        return port_.applicationSupport();
    }
    [[nodiscard]] std::optional<FileURL> downloads() const override {
        return faults_("UserFolders::downloads", [&] { return port_.downloads(); });
    }
    [[nodiscard]] std::optional<FileURL> trash() const override {
        return faults_("UserFolders::trash", [&] { return port_.trash(); });
    }

private:
    UserFolders& port_;
    Faults& faults_;
};

/// Reports back like the real ones: after the call has returned, or from within it.
class FaultyTrash final : public Trash {
public:
    FaultyTrash(Trash& port, Faults& faults) : port_(port), faults_(faults) {}

    void moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) override {
        const auto accepted = faults_("Trash::moveToTrash", [] { return Result<void>{}; });
        if (accepted)
            port_.moveToTrash(url, std::move(done));
        else
            done(accepted);
    }

private:
    Trash& port_;
    Faults& faults_;
};

class FaultyDockPreferences final : public DockPreferences {
public:
    FaultyDockPreferences(DockPreferences& port, Faults& faults) : port_(port), faults_(faults) {}

    [[nodiscard]] std::optional<PropertyList> persistentApps() override {
        return faults_("DockPreferences::persistentApps", [&] { return port_.persistentApps(); });
    }
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override {
        return port_.observeChanges(std::move(handler));
    }

private:
    DockPreferences& port_;
    Faults& faults_;
};

class FaultyCatalog final : public ApplicationCatalog {
public:
    FaultyCatalog(ApplicationCatalog& port, Faults& faults) : port_(port), faults_(faults) {}

    [[nodiscard]] std::optional<FileURL>
    urlForBundleID(const std::string& bundleID) const override {
        return faults_("ApplicationCatalog::urlForBundleID",
                       [&] { return port_.urlForBundleID(bundleID); });
    }
    [[nodiscard]] std::optional<std::string> bundleIdentifier(const FileURL& url) const override {
        return faults_("ApplicationCatalog::bundleIdentifier",
                       [&] { return port_.bundleIdentifier(url); });
    }
    [[nodiscard]] std::string displayName(const FileURL& url) const override {
        return port_.displayName(url);
    }
    [[nodiscard]] std::string bundleExtension() const override { return port_.bundleExtension(); }
    [[nodiscard]] FileManager fileManager() const override { return port_.fileManager(); }
    [[nodiscard]] std::vector<std::string> wellKnownBundleIDs() const override {
        return port_.wellKnownBundleIDs();
    }

private:
    ApplicationCatalog& port_;
    Faults& faults_;
};

class FaultyIcons final : public Icons {
public:
    FaultyIcons(Icons& port, Faults& faults) : port_(port), faults_(faults) {}

    /// Cannot fail.
    [[nodiscard]] ImageHandle iconForFile(const std::string& path, const std::string& key,
                                          Size size) override {
        return port_.iconForFile(path, key, size);
    }
    [[nodiscard]] ImageHandle namedImage(const std::string& name, Size size) override {
        return faults_("Icons::namedImage", [&] { return port_.namedImage(name, size); });
    }
    [[nodiscard]] ImageHandle symbol(const std::string& name, const std::string& description,
                                     Size size) override {
        return faults_("Icons::symbol", [&] { return port_.symbol(name, description, size); });
    }
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override {
        return port_.observeChanges(std::move(handler));
    }

private:
    Icons& port_;
    Faults& faults_;
};

class FaultyAccessibility final : public Accessibility {
public:
    FaultyAccessibility(Accessibility& port, Faults& faults) : port_(port), faults_(faults) {}

    [[nodiscard]] bool isTrusted() const override {
        return faults_("Accessibility::isTrusted", [&] { return port_.isTrusted(); });
    }
    /// Cannot fail.
    [[nodiscard]] bool canMoveWindows() const override { return port_.canMoveWindows(); }
    [[nodiscard]] Subscription observeManager(std::function<void()> handler) override {
        return port_.observeManager(std::move(handler));
    }
    bool isTrustedWithPrompt() override {
        return faults_("Accessibility::isTrustedWithPrompt",
                       [&] { return port_.isTrustedWithPrompt(); });
    }
    /// Cannot fail.
    [[nodiscard]] ElementHandle application(std::int32_t processIdentifier,
                                            const std::string& bundleID) override {
        return port_.application(processIdentifier, bundleID);
    }
    void setMessagingTimeout(AccessibilityElement& element, float seconds) override {
        port_.setMessagingTimeout(element, seconds);
    }
    [[nodiscard]] Result<ElementHandle> mainWindow(AccessibilityElement& application) override {
        return faults_("Accessibility::mainWindow", [&] { return port_.mainWindow(application); });
    }
    [[nodiscard]] Result<std::vector<ElementHandle>>
    windows(AccessibilityElement& application) override {
        return faults_("Accessibility::windows", [&] { return port_.windows(application); });
    }
    [[nodiscard]] Result<std::vector<OpenWindow>>
    openWindows(AccessibilityElement& application) override {
        return faults_("Accessibility::openWindows",
                       [&] { return port_.openWindows(application); });
    }
    Result<void> bringForward(AccessibilityElement& window) override {
        return faults_("Accessibility::bringForward", [&] { return port_.bringForward(window); });
    }
    [[nodiscard]] Result<Point> position(AccessibilityElement& window) override {
        return faults_("Accessibility::position", [&] { return port_.position(window); });
    }
    Result<void> setPosition(AccessibilityElement& window, Point position) override {
        return faults_("Accessibility::setPosition",
                       [&] { return port_.setPosition(window, position); });
    }
    [[nodiscard]] Result<Size> size(AccessibilityElement& window) override {
        return faults_("Accessibility::size", [&] { return port_.size(window); });
    }
    Result<void> setSize(AccessibilityElement& window, Size size) override {
        return faults_("Accessibility::setSize", [&] { return port_.setSize(window, size); });
    }

private:
    Accessibility& port_;
    Faults& faults_;
};

class FaultyPointerTaps final : public PointerTaps {
public:
    FaultyPointerTaps(PointerTaps& port, Faults& faults) : port_(port), faults_(faults) {}

    [[nodiscard]] bool needPermission() const override { return port_.needPermission(); }
    [[nodiscard]] Result<std::unique_ptr<PointerTap>> create(PointerRule rule,
                                                             Disabled onDisabled) override {
        return faults_("PointerTaps::create",
                       [&] { return port_.create(std::move(rule), std::move(onDisabled)); });
    }

private:
    PointerTaps& port_;
    Faults& faults_;
};

class FaultyLoginItemService final : public LoginItemService {
public:
    FaultyLoginItemService(LoginItemService& port, Faults& faults) : port_(port), faults_(faults) {}

    [[nodiscard]] Status status() const override { return port_.status(); }
    Result<void> registerItem() override {
        return faults_("LoginItemService::registerItem", [&] { return port_.registerItem(); });
    }
    Result<void> unregisterItem() override {
        return faults_("LoginItemService::unregisterItem", [&] { return port_.unregisterItem(); });
    }

private:
    LoginItemService& port_;
    Faults& faults_;
};

}

struct FaultyPorts::Ports {
    Ports(const Platform& behind, Faults& faults)
        : fileSystem(behind.fileSystem, faults)
        , fileEvents(behind.fileEvents, faults)
        , userFolders(behind.userFolders, faults)
        , trash(behind.trash, faults)
        , dockPreferences(behind.dockPreferences, faults)
        , catalog(behind.catalog, faults)
        , icons(behind.icons, faults)
        , accessibility(behind.accessibility, faults)
        , pointerTaps(behind.pointerTaps, faults)
        , loginItem(behind.loginItemService, faults) {}

    FaultyFileSystem fileSystem;
    FaultyFileEvents fileEvents;
    FaultyUserFolders userFolders;
    FaultyTrash trash;
    FaultyDockPreferences dockPreferences;
    FaultyCatalog catalog;
    FaultyIcons icons;
    FaultyAccessibility accessibility;
    FaultyPointerTaps pointerTaps;
    FaultyLoginItemService loginItem;
};

FaultyPorts::FaultyPorts(const Platform& behind, Faults& faults)
    : behind_(behind), ports_(std::make_unique<Ports>(behind, faults)) {}

FaultyPorts::~FaultyPorts() = default;

Platform FaultyPorts::ports() {
    return with({.fileSystem = &ports_->fileSystem,
                 .fileEvents = &ports_->fileEvents,
                 .userFolders = &ports_->userFolders,
                 .trash = &ports_->trash,
                 .dockPreferences = &ports_->dockPreferences,
                 .catalog = &ports_->catalog,
                 .icons = &ports_->icons,
                 .accessibility = &ports_->accessibility,
                 .pointerTaps = &ports_->pointerTaps,
                 .loginItemService = &ports_->loginItem},
                behind_);
}

}
