#include "Linux/Common/Applications/AppIdentityFixtures.hpp"

namespace vireline::xdg::fixtures {
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

EntryShape python() {
    return {.id = "python3.11", .exec = "/usr/bin/python3.11", .noDisplay = true, .terminal = true};
}

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
