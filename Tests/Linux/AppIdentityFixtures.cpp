#include "AppIdentityFixtures.hpp"

namespace vireline::x11::fixtures {
namespace {

std::string chromeApp() {
    return "abcdefghijklmnopabcdefghijklmnop";
}

EntryShape chrome() {
    return {.id = "google-chrome", .exec = "/usr/bin/google-chrome-stable %U"};
}

EntryShape chromeWebApp() {
    return {.id = "chrome-" + chromeApp() + "-Default",
            .exec = "/opt/google/chrome/google-chrome --profile-directory=Default --app-id=" +
                    chromeApp(),
            .wmClass = "crx_" + chromeApp()};
}

ProcessShape chromeProcess() {
    return {.executable = "/opt/google/chrome/chrome", .arguments = {"/opt/google/chrome/chrome"}};
}

EntryShape firefox() {
    return {.id = "firefox", .exec = "firefox %u"};
}

ProcessShape firefoxProcess() {
    return {.executable = "/usr/lib/firefox/firefox", .arguments = {"/usr/lib/firefox/firefox"}};
}

EntryShape python() {
    return {.id = "python3.11", .exec = "/usr/bin/python3.11", .noDisplay = true, .terminal = true};
}

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

std::vector<IdentityCase> wineCases() {
    const EntryShape notepad{
        .id = "wine-Programs-Notepad-Notepad",
        .exec =
            R"(env WINEPREFIX="/home/u/.wine" wine "C:\\\\Program Files\\\\Notepad\\\\notepad++.exe")"};
    const EntryShape linked{
        .id = "wine-Programs-Foobar",
        .exec = R"(env WINEPREFIX=/home/u/.wine wine C:\\\\windows\\\\command\\\\start.exe /Unix )"
                "/home/u/.wine/dosdevices/c:/users/u/Foobar.lnk",
        .wmClass = "foobar2000.exe"};
    const ProcessShape notepadProcess{.executable = "/usr/lib/wine/wine64-preloader",
                                      .arguments = {R"(C:\Program Files\Notepad\notepad++.exe)"}};
    return {
        {"AWindowsProgramByTheExecLine",
         {.instance = "notepad++.exe", .className = "notepad++.exe"},
         notepadProcess,
         {notepad, linked},
         "wine-Programs-Notepad-Notepad"},
        {"AWindowsProgramInAnOldWine",
         {.instance = "notepad++.exe", .className = "Wine"},
         notepadProcess,
         {notepad, linked},
         "wine-Programs-Notepad-Notepad"},
        {"AWindowsProgramThatWasLinked",
         {.instance = "foobar2000.exe", .className = "foobar2000.exe"},
         {.executable = "/usr/lib/wine/wine64-preloader",
          .arguments = {R"(C:\Program Files\foobar2000\foobar2000.exe)"}},
         {notepad, linked},
         "wine-Programs-Foobar"},
        {"OfTwoInstallationsTheOneWithThatPath",
         {.instance = "game.exe", .className = "game.exe"},
         {.executable = "/usr/lib/wine/wine-preloader", .arguments = {R"(C:\Two\game.exe)"}},
         {{.id = "wine-one", .exec = R"(wine "C:\\One\\game.exe")"},
          {.id = "wine-two", .exec = R"(wine "C:\\Two\\game.exe")"}},
         "wine-two"},
        {"AWindowsProgramWithoutAnEntry",
         {.instance = "setup.exe", .className = "setup.exe"},
         {.executable = "/usr/lib/wine/wine64-preloader", .arguments = {R"(D:\setup.exe)"}},
         {notepad, linked},
         "setup.exe",
         false},
        {"OldWinesProgramsAreToldApartWithoutEntriesToo",
         {.instance = "setup.exe", .className = "Wine"},
         {.executable = "/usr/lib/wine/wine64-preloader", .arguments = {R"(D:\setup.exe)"}},
         {},
         "setup.exe",
         false},
        {"AGameOfSteams",
         {.instance = "steam_app_620", .className = "steam_app_620"},
         {.executable = "/usr/lib/wine/wine64-preloader", .arguments = {R"(Z:\portal2.exe)"}},
         {{.id = "steam", .exec = "/usr/bin/steam %U"},
          {.id = "Portal 2", .exec = "steam steam://rungameid/620"}},
         "Portal 2"},
    };
}

std::vector<IdentityCase> webAppCases() {
    const EntryShape edgeWebApp{.id = "msedge-" + chromeApp() + "-Default",
                                .exec = "/opt/microsoft/msedge/microsoft-edge "
                                        "--profile-directory=Default --app-id=" +
                                        chromeApp(),
                                .wmClass = "crx__" + chromeApp()};
    return {
        {"ChromesOwnWindow",
         {.instance = "google-chrome", .className = "Google-chrome"},
         chromeProcess(),
         {chrome(), chromeWebApp()},
         "google-chrome"},
        {"ChromesOwnWindowWithAnotherDataFolder",
         {.instance = "google-chrome (/home/u/work)", .className = "Google-chrome"},
         chromeProcess(),
         {chrome(), chromeWebApp()},
         "google-chrome"},
        {"AnInstalledPage",
         {.instance = "crx_" + chromeApp(), .className = "Google-chrome"},
         chromeProcess(),
         {chrome(), chromeWebApp()},
         chromeWebApp().id},
        {"AnInstalledPageWhoseEntryHasNoClass",
         {.instance = "crx_" + chromeApp(), .className = "Unheard"},
         chromeProcess(),
         {chrome(), {.id = chromeWebApp().id, .exec = chromeWebApp().exec}},
         chromeWebApp().id},
        {"AnInstalledPageOfAnUninstalledEntryIsTheBrowsers",
         {.instance = "crx_ponmlkjihgfedcbaponmlkjihgfedcba", .className = "Google-chrome"},
         chromeProcess(),
         {chrome(), chromeWebApp()},
         "google-chrome"},
        {"EdgesInstalledPage",
         {.instance = "crx__" + chromeApp(), .className = "Microsoft-edge"},
         {.executable = "/opt/microsoft/msedge/msedge"},
         {{.id = "microsoft-edge", .exec = "/usr/bin/microsoft-edge-stable %U"}, edgeWebApp},
         edgeWebApp.id},
        {"AFlatpakChromesInstalledPage",
         {.instance = "crx_" + chromeApp(), .className = "Google-chrome"},
         {.executable = "/app/extra/chrome", .flatpakID = "com.google.Chrome"},
         {{.id = "com.google.Chrome",
           .exec = "/usr/bin/flatpak run --command=/app/bin/chrome com.google.Chrome @@u %U @@",
           .wmClass = "Google-chrome"},
          {.id = "com.google.Chrome.flextop.chrome-" + chromeApp() + "-Default",
           .exec = "/usr/bin/flatpak run --command=/app/bin/chrome com.google.Chrome "
                   "--profile-directory=Default --app-id=" +
                   chromeApp(),
           .wmClass = "crx_" + chromeApp()}},
         "com.google.Chrome.flextop.chrome-" + chromeApp() + "-Default"},
        {"APageOpenedAsAnApp",
         {.instance = "web.whatsapp.com", .className = "Unheard"},
         chromeProcess(),
         {chrome(), {.id = "whatsapp", .exec = "google-chrome --app=https://web.whatsapp.com/"}},
         "whatsapp"},
        {"APageWithAPathOpenedAsAnApp",
         {.instance = "calendar.google.com__calendar_r", .className = "Unheard"},
         chromeProcess(),
         {chrome(),
          {.id = "my-mail", .exec = "google-chrome --app=https://mail.google.com/mail/"},
          {.id = "my-calendar",
           .exec = "google-chrome --app=https://calendar.google.com/calendar/r?tab=mc"}},
         "my-calendar"},
        {"ABrowserWithAnEntryForAPageOnly",
         {.instance = "chromium", .className = "Unheard"},
         {.executable = "/usr/lib/chromium/chromium", .arguments = {"/usr/lib/chromium/chromium"}},
         {{.id = "page", .exec = "chromium --app-id=" + chromeApp()}},
         "Unheard",
         false},
        {"FirefoxWithAClassOfItsOwn",
         {.instance = "Navigator", .className = "WebApp-News1234"},
         firefoxProcess(),
         {firefox(),
          {.id = "webapp-News1234",
           .exec = "sh -c 'XAPP_FORCE_GTKWINDOW_ICON=\"/i.png\" firefox --class WebApp-News1234 "
                   "--profile /home/u/.ice/News --no-remote \"https://news.example\"'"}},
         "webapp-News1234"},
        {"FirefoxPwaWindow",
         {.instance = "FFPWA-01G0", .className = "FFPWA-01G0"},
         firefoxProcess(),
         {firefox(),
          {.id = "FFPWA-01G0", .exec = "firefoxpwa site launch 01G0", .wmClass = "FFPWA-01G0"}},
         "FFPWA-01G0"},
        {"FirefoxesOwnWindowBesideItsPages",
         {.instance = "Navigator", .className = "firefox"},
         firefoxProcess(),
         {firefox(),
          {.id = "a-page", .exec = "firefox --class WebApp-1 https://x", .wmClass = "WebApp-1"}},
         "firefox"},
    };
}

std::vector<IdentityCase> programCases() {
    return {
        {"TheExecutablesNameInTheExecLine",
         {.instance = "frame", .className = "Frame"},
         {.executable = "/usr/bin/audacity", .arguments = {"audacity"}},
         {{.id = "org.audacityteam.A", .exec = "env GDK_BACKEND=x11 audacity %F"}},
         "org.audacityteam.A"},
        {"OfTwoFoldersTheRightOne",
         {.instance = "frame", .className = "Frame"},
         {.executable = "/opt/two/tool", .arguments = {"/opt/two/tool"}},
         {{.id = "one", .exec = "/opt/one/tool"}, {.id = "two", .exec = "/opt/two/tool"}},
         "two"},
        {"AnArgumentTellsEntriesOfOneProgramApart",
         {.instance = "frame", .className = "Frame"},
         {.executable = "/usr/bin/office", .arguments = {"office", "--writer"}},
         {{.id = "office-calc", .exec = "office --calc %U"},
          {.id = "office-writer", .exec = "office --writer %U"}},
         "office-writer"},
        {"APanelOfAProgramIsNotTheProgram",
         {.instance = "frame", .className = "Frame"},
         {.executable = "/usr/bin/settings", .arguments = {"settings"}},
         {{.id = "network-panel", .exec = "settings network"}},
         "Frame",
         false},
        {"AScriptByItsOwnName",
         {.instance = "gnome-tweaks", .className = "Unheard"},
         {.executable = "/usr/bin/python3.11",
          .arguments = {"/usr/bin/python3", "/usr/bin/gnome-tweaks"}},
         {python(), {.id = "org.gnome.tweaks", .exec = "gnome-tweaks"}},
         "org.gnome.tweaks"},
        {"AScriptByItsPath",
         {.instance = "tk", .className = "Tk"},
         {.executable = "/usr/bin/python3.11", .arguments = {"python3", "/home/u/two/main.py"}},
         {{.id = "one", .exec = "python3 /home/u/one/main.py"},
          {.id = "two", .exec = "python3 -u /home/u/two/main.py"}},
         "two"},
        {"AJavaArchive",
         {.instance = "sun-awt-X11-XFramePeer", .className = "com-example-Main"},
         {.executable = "/usr/lib/jvm/java-17/bin/java",
          .arguments = {"java", "-Xmx1g", "-jar", "/opt/jtool/jtool.jar"}},
         {{.id = "jtool", .exec = "java -jar /opt/jtool/jtool.jar %f"},
          {.id = "java-settings", .exec = "/usr/lib/jvm/java-17/bin/java"}},
         "jtool"},
        {"AnElectronAppByItsFolder",
         {.instance = "unheard", .className = "Unheard"},
         {.executable = "/usr/lib/electron25/electron",
          .arguments = {"/usr/lib/electron25/electron", "/usr/lib/chatty/app.asar"}},
         {{.id = "electron25", .exec = "electron25 %u"},
          {.id = "io.chatty.App", .exec = "/usr/bin/chatty %U"}},
         "io.chatty.App"},
    };
}

std::vector<IdentityCase> trapCases() {
    return {
        {"TwoTailsAlikeAreToldApartByTheProcess",
         {.instance = "x", .className = "Terminal"},
         {.executable = "/usr/bin/xfce4-terminal", .arguments = {"xfce4-terminal"}},
         {{.id = "org.gnome.Terminal", .exec = "gnome-terminal"},
          {.id = "org.xfce.terminal", .exec = "xfce4-terminal"}},
         "org.xfce.terminal"},
        {"TwoTailsAlikeAreNotGuessed",
         {.instance = "x", .className = "Terminal"},
         {},
         {{.id = "org.gnome.Terminal", .exec = "gnome-terminal"},
          {.id = "org.xfce.terminal", .exec = "xfce4-terminal"}},
         "Terminal",
         false},
        {"ACopyOfAnEntryIsNoAmbiguity",
         {.instance = "frame", .className = "Frame"},
         {.executable = "/usr/bin/tool", .arguments = {"tool"}},
         {{.id = "mytool", .exec = "tool %U"}, {.id = "mytool-copy", .exec = "tool %F"}},
         "mytool"},
        {"TwoEntriesOfOneProgramAreNotGuessed",
         {.instance = "frame", .className = "Frame"},
         {.executable = "/usr/bin/tool", .arguments = {"tool"}},
         {{.id = "light", .exec = "tool --light"}, {.id = "dark", .exec = "tool --dark"}},
         "Frame",
         false},
        {"AVersionIsNoTail", {.instance = "11", .className = "11"}, {}, {python()}, "11", false},
        {"AScriptIsNotItsInterpreter",
         {.instance = "tk", .className = "Tk"},
         {.executable = "/usr/bin/python3.11", .arguments = {"python3", "game.py"}},
         {{.id = "python3.11", .exec = "/usr/bin/python3.11"}},
         "Tk",
         false},
        {"AScriptWithItsInterpretersClassIsNotTheInterpreter",
         {.instance = "electron", .className = "Electron"},
         {.executable = "/usr/lib/electron/electron",
          .arguments = {"electron", "/home/u/project/main.js"}},
         {{.id = "Electron", .exec = "electron %u", .wmClass = "electron"}},
         "Electron-window",
         false},
        {"AnEntryThatClaimsAnothersClass",
         {.instance = "Navigator", .className = "firefox"},
         firefoxProcess(),
         {firefox(), {.id = "liar", .exec = "/opt/liar/liar", .wmClass = "firefox"}},
         "firefox"},
        {"AClaimThatNothingSpeaksAgainstCounts",
         {.instance = "Navigator", .className = "firefox"},
         {},
         {firefox(), {.id = "wrapped", .exec = "/opt/wrapped/run", .wmClass = "firefox"}},
         "wrapped"},
        {"AnEntryWhoseOwnClassIsWrong",
         {.instance = "gitk", .className = "Gitk"},
         {},
         {{.id = "gitk", .exec = "gitk", .wmClass = "SomethingElse"}},
         "gitk"},
        {"WhatRunsInATerminalIsTheTerminals",
         {.instance = "xterm", .className = "XTerm"},
         {.executable = "/usr/bin/xterm", .arguments = {"xterm", "-e", "vim"}},
         {{.id = "debian-xterm", .exec = "xterm", .wmClass = "XTerm"},
          {.id = "vim", .exec = "vim %F", .terminal = true}},
         "debian-xterm"},
        {"OfTwoEqualClaimsAlwaysTheSame",
         {.instance = "same", .className = "same"},
         {},
         {{.id = "b", .exec = "b", .wmClass = "same"}, {.id = "a", .exec = "a", .wmClass = "same"}},
         "a"},
        {"NoClassAtAllIsTheProgramsName",
         {},
         {.executable = "/opt/odd/odd-tool"},
         {firefox()},
         "odd-tool",
         false},
        {"NeitherClassNorProgram", {}, {}, {firefox()}, "unknown", false},
        {"AnInstanceWithoutAClass", {.instance = "lonely"}, {}, {}, "lonely", false},
    };
}

}
