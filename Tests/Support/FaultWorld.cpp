#include "Support/FaultWorld.hpp"

#include "Settings/SettingsCoding.hpp"
#include "Sources/DockPreferencesReader.hpp"
#include "Support/DockFixture.hpp"

#include <algorithm>
#include <sstream>

namespace vireline::test {

FaultWorld::FaultWorld()
    : desktopsDock(DockPreferencesReader::plistURL(platform.fake.userFolders)) {
    FakePlatform& fake = platform.fake;
    fake.screens.list = {screenWithDock(1, {0, 0, 1920, 1080}),
                         screenAt(display, {1920, 0, 1920, 1080})};
    finder = fake.install("com.apple.finder", "Finder");
    mail = fake.install("com.apple.mail", "Mail");
    notes = fake.install("com.apple.Notes", "Notes");
    visitor = fake.install("org.example.Visitor", "Visitor");
    fake.pin({finder, mail});
    fake.fileSystem.put(desktopsDock);
}

void FaultWorld::store(const Settings& settings) {
    textBefore_ = SettingsCoding::encode(settings);
    platform.fake.fileSystem.put(preferences(), textBefore_);
}

FaultWorld::Disk FaultWorld::disk() const {
    Disk disk{.textBefore = textBefore_, .text = {}, .lastSave = {}, .settings = {}};
    const std::string path = preferences().path();
    const auto& files = platform.fake.fileSystem.files;
    const auto& writes = platform.fake.fileSystem.writes;
    if (const auto file = files.find(path); file != files.end())
        disk.text = file->second;
    if (const auto saves = writes.find(path); saves != writes.end())
        disk.lastSave = saves->second.back();
    if (auto decoded = SettingsCoding::decode(disk.text))
        disk.settings = *std::move(decoded);
    return disk;
}

void FaultWorld::start() {
    delegate_ = std::make_unique<AppDelegate>(platform.ports());
    delegate_->applicationDidFinishLaunching();
}

void FaultWorld::quit() {
    delegate_.reset();
    textAtQuit = disk().text;
}

void FaultWorld::click(const std::string& label) {
    if (const auto at = tile(label))
        send({PointerEvent::Kind::pressed, PointerEvent::Kind::released}, *at);
}

void FaultWorld::doubleClick(const std::string& label) {
    pass(1);
    if (const auto at = tile(label)) {
        for (int i = 0; i < 2; ++i)
            send({PointerEvent::Kind::pressed, PointerEvent::Kind::released}, *at);
    }
    pass(1);
}

void FaultWorld::chooseFromMenu(const std::string& label, const std::string& title) {
    const auto at = tile(label);
    if (!at)
        return;
    send({PointerEvent::Kind::secondaryPressed}, *at);
    const auto& entries = dock()->menus.back().menu.entries;
    const auto chosen = std::ranges::find_if(entries, [&](const MenuItem& entry) {
        const auto* const command = std::get_if<MenuCommand>(&entry);
        return command != nullptr && command->title == title;
    });
    if (chosen != entries.end())
        dock()->choose(static_cast<std::size_t>(chosen - entries.begin()));
    else
        dock()->dismissMenu();
}

void FaultWorld::dragTile(const std::string& label, const std::string& onto) {
    const auto from = tile(label);
    const auto to = tile(onto);
    if (!from || !to)
        return;
    send({PointerEvent::Kind::pressed}, *from);
    send({PointerEvent::Kind::moved, PointerEvent::Kind::released}, *to);
}

void FaultWorld::dropOn(const std::string& label, const FileURL& file) {
    const auto at = tile(label);
    if (!at)
        return;
    PanelWindowListener& listener = dock()->listener();
    listener.dragEntered({file.absoluteString()});
    if (listener.dragMoved(*at))
        listener.dropped(*at);
    else
        listener.dragExited();
}

void FaultWorld::set(SettingsField field, const FormValue& value) {
    platform.fake.application.announceSecondStart();
    platform.fake.programWindows.forms.back()->listener.formChanged(field, value);
}

void FaultWorld::act(OnboardingAction action) {
    platform.fake.programWindows.tours.back()->listener.onboardingActed(action);
}

void FaultWorld::announceScreens() {
    platform.fake.screens.announceChange();
    pass(0.6);
}

FaultWorld::Snapshot FaultWorld::look() {
    FakePlatform& fake = platform.fake;
    Snapshot snapshot;
    for (const std::uint32_t shown : fake.panelWindows.displays()) {
        const FakePanel& panel = fake.panelWindows.panel(shown);
        std::ostringstream text;
        text << '#' << shown << ' ' << panel.frame;
        for (const AccessibleTile& tile : panel.listener().accessibleTiles())
            text << ' ' << tile.label;
        snapshot.docks.push_back(text.str());
    }
    snapshot.watchesOfTheDesktopsDock = fake.fileEvents.watchCount(desktopsDock);
    snapshot.isPointerGuarded = fake.pointerTaps.isEnabled();
    return snapshot;
}

void FaultWorld::send(std::initializer_list<PointerEvent::Kind> kinds, Point at) {
    for (const PointerEvent::Kind kind : kinds) {
        if (FakePanel* const panel = dock())
            panel->listener().pointerEvent({kind, at});
    }
}

FakePanel* FaultWorld::dock() const {
    return platform.fake.panelWindows.find(display);
}

std::optional<Point> FaultWorld::tile(const std::string& label) {
    FakePanel* const panel = dock();
    if (panel == nullptr)
        return std::nullopt;
    panel->nextFrame();
    pass(0.5);
    panel->nextFrame();
    const auto all = panel->listener().accessibleTiles();
    const auto found = std::ranges::find(all, label, &AccessibleTile::label);
    return found == all.end() ? std::nullopt : std::optional{found->frame.center()};
}

FileURL FaultWorld::preferences() const {
    return platform.fake.userFolders.applicationSupportFolders.front()
        .appending("Vireline")
        .appending("preferences.json");
}

}
