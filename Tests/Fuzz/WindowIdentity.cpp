/// Fuzzes the identification of a window's app. The input has these parts, separated by lines of
/// "%%": WM_CLASS, the IDs of two toolkits, the startup ID, _NET_WM_ICON, the executable's path,
/// its command line, its control group, and its sandbox's file.
#include "Applications/Identity/AppIdentity.hpp"
#include "Applications/WindowIcons.hpp"
#include "Foundation/Require.hpp"
#include "Fuzz/FuzzTarget.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace vireline::x11 {
namespace {

class Parts {
public:
    explicit Parts(std::string_view text) : rest_(text) {}

    std::string_view next() {
        constexpr std::string_view separator = "\n%%\n";
        const std::size_t end = std::min(rest_.find(separator), rest_.size());
        const std::string_view part = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + separator.size(), rest_.size()));
        return part;
    }

private:
    std::string_view rest_;
};

struct Program {
    const char* id;
    const char* exec;
    const char* wmClass = "";
    bool terminal = false;
};

/// One of each kind that is treated differently.
constexpr std::array programs{
    Program{"org.gnome.Nautilus", "nautilus --new-window %U"},
    Program{"firefox", "/usr/lib/firefox/firefox %u", "Navigator"},
    Program{"chrome-abc-Default", "google-chrome --profile-directory=Default --app-id=abc",
            "crx_abc"},
    Program{"mail", "chromium --app=https://mail.example/inbox?x"},
    Program{"firefox_firefox", "env BAMF=/x /snap/bin/firefox %u"},
    Program{"code_code", "snap run code.url-handler %F"},
    Program{"org.gimp.GIMP", "/usr/bin/flatpak run --branch=stable org.gimp.GIMP @@u %U @@"},
    Program{"wine-notepad", R"(env WINEPREFIX="/home/a/.wine" wine C:\\windows\\notepad.exe)"},
    Program{"python3.11", "/usr/bin/python3.11", "", true},
    Program{"script", "python3 -m script.main"},
    Program{"java-tool", "sh -c \"exec java -jar '/opt/tool.jar' %f\""},
    Program{"steam-game", "steam steam://rungameid/440"},
    Program{"electron-app", "/usr/lib/electron/electron /usr/lib/electron-app/app.asar"},
    Program{"xterm", "xterm", "XTerm"},
};

const xdg::DesktopEntryIndex& installed() {
    static const xdg::DesktopEntryIndex index = [] {
        std::vector<xdg::DesktopEntry> entries;
        for (const Program& program : programs) {
            xdg::DesktopEntry& entry = entries.emplace_back();
            entry.id = program.id;
            entry.path = "/usr/share/applications/" + entry.id + ".desktop";
            entry.name = entry.id;
            entry.exec = program.exec;
            entry.startupWMClass = program.wmClass;
            entry.terminal = program.terminal;
        }
        return xdg::DesktopEntryIndex{std::move(entries)};
    }();
    return index;
}

void readIcons(std::string_view bytes) {
    std::vector<std::uint32_t> items(bytes.size() / sizeof(std::uint32_t));
    if (!items.empty())
        std::memcpy(items.data(), bytes.data(), items.size() * sizeof(std::uint32_t));
    for (const xdg::WindowIcon& icon : WindowIcons::parse(items))
        require(icon.pixels.size() == std::size_t{icon.width} * icon.height,
                "a picture has all its pixels");
}

void identify(std::string_view text) {
    Parts parts{text};
    xdg::WindowTraits window;
    window.setWMClass(parts.next());
    window.gtkApplicationID = xdg::PlainText::clean(parts.next());
    window.kdeDesktopFile = xdg::PlainText::clean(parts.next(), 1024);
    window.startupID = xdg::PlainText::clean(parts.next(), 1024);
    readIcons(parts.next());
    xdg::ProcessFacts process;
    process.executable = parts.next();
    process.arguments = xdg::ProcessInspection::argumentsIn(
        parts.next().substr(0, xdg::ProcessInspection::maximumArgumentBytes));
    xdg::ProcessInspection::addControlGroup(process, parts.next());
    if (process.flatpakID.empty())
        process.flatpakID = xdg::ProcessInspection::flatpakIDIn(parts.next());

    const xdg::IdentifiedApp app = xdg::AppIdentity::identify(window, process, installed());
    require(!app.bundleID.empty() && !app.name.empty(), "an app has an identity and a name");
    require(xdg::PlainText::isClean(app.name), "a name is fit to be shown");
    require(app.path.starts_with('/'), "an app's path is absolute");
    require((installed().find(app.bundleID) != nullptr) == app.hasEntry,
            "an app without an entry has no entry's identity");
    require(xdg::AppIdentity::identify(window, process, installed()) == app,
            "the same window is the same app");
}

}
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vireline::x11::identify(vireline::fuzz::text(data, size));
    return 0;
}
