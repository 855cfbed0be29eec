#include "Linux/Common/Applications/AppIdentityFixtures.hpp"

namespace vireline::xdg::fixtures {

EntryShape firefox() {
    return {.id = "firefox", .exec = "firefox %u"};
}

ProcessShape firefoxProcess() {
    return {.executable = "/usr/lib/firefox/firefox", .arguments = {"/usr/lib/firefox/firefox"}};
}

DesktopEntryIndex indexOf(const std::vector<EntryShape>& shapes) {
    std::vector<DesktopEntry> entries;
    for (const auto& shape : shapes) {
        DesktopEntry& entry = entries.emplace_back();
        entry.id = shape.id;
        entry.path = "/usr/share/applications/" + shape.id + ".desktop";
        entry.name = shape.id;
        entry.exec = shape.exec;
        entry.startupWMClass = shape.wmClass;
        entry.noDisplay = shape.noDisplay;
        entry.terminal = shape.terminal;
    }
    return DesktopEntryIndex{std::move(entries)};
}

IdentifiedApp identify(const IdentityCase& identityCase) {
    WindowTraits window;
    window.instance = identityCase.window.instance;
    window.className = identityCase.window.className;
    window.gtkApplicationID = identityCase.window.gtkID;
    window.kdeDesktopFile = identityCase.window.kdeFile;
    ProcessFacts process;
    process.executable = identityCase.process.executable;
    process.arguments = identityCase.process.arguments;
    process.flatpakID = identityCase.process.flatpakID;
    ProcessInspection::addControlGroup(process, identityCase.process.controlGroup);
    return AppIdentity::identify(window, process, indexOf(identityCase.entries));
}

std::vector<IdentityCase> toolkitCases() {
    return {
        {"GtkIdIsTheEntrysId",
         {.instance = "gnome-text-editor",
          .className = "Gnome-text-editor",
          .gtkID = "org.gnome.TextEditor"},
         {.executable = "/usr/bin/gnome-text-editor"},
         {{.id = "org.gnome.TextEditor", .exec = "gnome-text-editor %U"}},
         "org.gnome.TextEditor"},
        {"GtkIdComesBeforeTheClass",
         {.instance = "evince", .className = "Evince", .gtkID = "org.gnome.Evince"},
         {},
         {{.id = "evince", .exec = "evince %U", .wmClass = "evince"},
          {.id = "org.gnome.Evince", .exec = "evince %U"}},
         "org.gnome.Evince"},
        {"KdeFileNamesTheEntry",
         {.instance = "dolphin", .className = "dolphin", .kdeFile = "org.kde.dolphin"},
         {},
         {{.id = "org.kde.dolphin", .exec = "dolphin %u"}},
         "org.kde.dolphin"},
        {"KdeFileMayEndInDesktop",
         {.className = "whatever", .kdeFile = "org.kde.kate.desktop"},
         {},
         {{.id = "org.kde.kate", .exec = "kate -b %U"}},
         "org.kde.kate"},
        {"KdeFileMayBeAPath",
         {.className = "whatever", .kdeFile = "/usr/share/applications/org.kde.okular.desktop"},
         {},
         {{.id = "org.kde.okular", .exec = "okular %U"}},
         "org.kde.okular"},
        {"AnIdWithoutAnEntryIsIgnored",
         {.instance = "inkscape", .className = "Inkscape", .gtkID = "org.gnome.Unheard"},
         {},
         {{.id = "inkscape", .exec = "inkscape %F"}},
         "inkscape"},
    };
}

std::vector<IdentityCase> classCases() {
    return {
        {"StartupWMClassIsTheClass",
         {.instance = "jetbrains-clion", .className = "jetbrains-clion"},
         {.executable = "/opt/clion/jbr/bin/java",
          .arguments = {"/opt/clion/jbr/bin/java", "-cp", "a.jar", "com.intellij.idea.Main"}},
         {{.id = "jetbrains-toolbox-1",
           .exec = "/opt/clion/bin/clion.sh %u",
           .wmClass = "jetbrains-clion"}},
         "jetbrains-toolbox-1"},
        {"StartupWMClassIgnoresCaseAtLast",
         {.instance = "gimp", .className = "Gimp"},
         {},
         {{.id = "gimp-edge", .exec = "gimp-2.99 %U", .wmClass = "GIMP"}},
         "gimp-edge"},
        {"TheClassExactlyComesBeforeTheInstanceInAnyCase",
         {.instance = "xterm", .className = "UXTerm"},
         {},
         {{.id = "debian-uxterm", .exec = "uxterm", .wmClass = "UXTerm"},
          {.id = "debian-xterm", .exec = "xterm", .wmClass = "XTerm"}},
         "debian-uxterm"},
        {"TheInstanceIsTheId",
         {.instance = "code", .className = "Code"},
         {.executable = "/usr/share/code/code"},
         {{.id = "code", .exec = "/usr/share/code/code %F"}},
         "code"},
        {"TheIdInAnotherCase",
         {.instance = "Navigator", .className = "Firefox"},
         firefoxProcess(),
         {firefox()},
         "firefox"},
        {"SpacesInAClassAreDashesInAnId",
         {.instance = "Visual Paradigm", .className = "Visual Paradigm"},
         {},
         {{.id = "visual-paradigm", .exec = "/opt/vp/run %f"}},
         "visual-paradigm"},
        {"TheTailOfAReverseDnsIdIgnoringCase",
         {.instance = "nautilus", .className = "Nautilus"},
         {},
         {{.id = "org.gnome.Nautilus", .exec = "nautilus --new-window %U"}},
         "org.gnome.Nautilus"},
        {"AnExactIdComesBeforeATail",
         {.instance = "terminal", .className = "Terminal"},
         {},
         {{.id = "Terminal", .exec = "terminal"},
          {.id = "org.gnome.Terminal", .exec = "gnome-terminal"}},
         "Terminal"},
        {"ANoDisplayEntryStillHasItsWindows",
         {.instance = "org.gnome.Shell.Extensions", .className = "org.gnome.Shell.Extensions"},
         {},
         {{.id = "org.gnome.Shell.Extensions", .exec = "gapplication launch x", .noDisplay = true}},
         "org.gnome.Shell.Extensions"},
        {"OfTwoClaimantsTheOneThatMenusShow",
         {.instance = "libreoffice", .className = "libreoffice-calc"},
         {},
         {{.id = "a-calc-helper",
           .exec = "soffice",
           .wmClass = "libreoffice-calc",
           .noDisplay = true},
          {.id = "libreoffice-calc",
           .exec = "libreoffice --calc %U",
           .wmClass = "libreoffice-calc"}},
         "libreoffice-calc"},
    };
}

std::vector<IdentityCase> sandboxCases() {
    const EntryShape snapFirefox{.id = "firefox_firefox",
                                 .exec =
                                     "env BAMF_DESKTOP_FILE_HINT=/var/lib/snapd/desktop/"
                                     "applications/firefox_firefox.desktop /snap/bin/firefox %u",
                                 .wmClass = "firefox"};
    const EntryShape debFirefox{
        .id = "firefox", .exec = "/usr/lib/firefox/firefox %u", .wmClass = "firefox"};
    const EntryShape flatpakFirefox{
        .id = "org.mozilla.firefox",
        .exec = "/usr/bin/flatpak run --branch=stable --arch=x86_64 --command=firefox "
                "--file-forwarding org.mozilla.firefox @@u %u @@",
        .wmClass = "firefox"};
    const ProcessShape snapProcess{
        .executable = "/snap/firefox/3836/usr/lib/firefox/firefox",
        .arguments = {"/snap/firefox/3836/usr/lib/firefox/firefox"},
        .controlGroup = "0::/user.slice/user-1000.slice/user@1000.service/app.slice/"
                        "snap.firefox.firefox-0e6b3c1a-6d0e-4f5e-9a51-8f8f0a1c2d3e.scope\n"};
    const ProcessShape flatpakProcess{
        .executable = "/app/lib/firefox/firefox",
        .arguments = {"/app/lib/firefox/firefox"},
        .controlGroup = "0::/user.slice/user-1000.slice/user@1000.service/app.slice/"
                        "app-flatpak-org.mozilla.firefox-12345.scope\n"};
    return {
        {"ASnapsWindowAmongThreeInstallations",
         {.instance = "Navigator", .className = "firefox"},
         snapProcess,
         {snapFirefox, debFirefox, flatpakFirefox},
         "firefox_firefox"},
        {"APackagesWindowAmongThreeInstallations",
         {.instance = "Navigator", .className = "firefox"},
         firefoxProcess(),
         {snapFirefox, debFirefox, flatpakFirefox},
         "firefox"},
        {"AFlatpaksWindowAmongThreeInstallations",
         {.instance = "Navigator", .className = "firefox"},
         flatpakProcess,
         {snapFirefox, debFirefox, flatpakFirefox},
         "org.mozilla.firefox"},
        {"ASnapByItsPathAlone",
         {.instance = "spotify", .className = "Unrelated"},
         {.executable = "/snap/spotify/67/usr/share/spotify/spotify"},
         {{.id = "spotify_spotify", .exec = "/snap/bin/spotify %U"}},
         "spotify_spotify"},
        {"ASnapWithSeveralProgramsByItsControlGroup",
         {.instance = "soffice", .className = "Soffice"},
         {.executable = "/snap/libreoffice/300/lib/libreoffice/program/soffice.bin",
          .controlGroup = "0::/x/snap.libreoffice.writer.0e6b3c1a-6d0e-4f5e-9a51-8f8f0a1c2d3e."
                          "scope\n"},
         {{.id = "libreoffice_calc", .exec = "/snap/bin/libreoffice.calc %U"},
          {.id = "libreoffice_writer", .exec = "/snap/bin/libreoffice.writer %U"}},
         "libreoffice_writer"},
        {"AProgramStartedFromASnapsTerminalIsNotTheSnaps",
         {.instance = "meld", .className = "Unrelated"},
         {.executable = "/usr/bin/meld",
          .arguments = {"/usr/bin/meld"},
          .controlGroup = "0::/x/snap.code.code-0e6b3c1a-6d0e-4f5e-9a51-8f8f0a1c2d3e.scope\n"},
         {{.id = "code_code", .exec = "/snap/bin/code %F"},
          {.id = "org.gnome.Other", .exec = "meld %F"}},
         "org.gnome.Other"},
        {"AFlatpakWhoseClassSaysNothing",
         {.instance = "main", .className = "Main"},
         {.executable = "/app/bin/main", .flatpakID = "com.example.Studio"},
         {{.id = "com.example.Studio", .exec = "flatpak run --branch=stable com.example.Studio"},
          {.id = "studio", .exec = "/usr/bin/main"}},
         "com.example.Studio"},
        {"AFlatpakOfWhichTheHostHasANamesakeOnly",
         {.instance = "main", .className = "Main"},
         {.executable = "/app/bin/studio", .flatpakID = "com.example.Studio"},
         {{.id = "host-studio", .exec = "/usr/bin/studio"}},
         "Main",
         false},
        {"AFlatpakByTheTailOfItsId",
         {.instance = "flatseal", .className = "Flatseal"},
         {.flatpakID = "com.github.tchx84.Flatseal"},
         {{.id = "com.github.tchx84.Flatseal",
           .exec = "/usr/bin/flatpak run --command=com.github.tchx84.Flatseal "
                   "com.github.tchx84.Flatseal"}},
         "com.github.tchx84.Flatseal"},
    };
}

}
